#pragma once

#include "JsonText.h"

#include <string>
#include <string_view>

namespace pipenet {

/// An object that is written to the end of a text, member by member. For records in large numbers:
/// a value of the JSON library for each would take longer than finding them.
class JsonObject {
public:
    /// @param out outlives this and gets nothing else meanwhile but what `begin` leaves to the
    ///            caller.
    explicit JsonObject(std::string& out) : out_(out) { out_ += '{'; }
    JsonObject(const JsonObject&) = delete;
    JsonObject& operator=(const JsonObject&) = delete;
    ~JsonObject() = default;

    /// @param name plain ASCII, without quotes.
    template<class Value>
    JsonObject& add(std::string_view name, const Value& value) {
        appendValue(begin(name), value);
        return *this;
    }
    /// Begins a member whose value the caller appends to the text.
    std::string& begin(std::string_view name) {
        out_ += isFirst_ ? "\"" : ",\"";
        isFirst_ = false;
        out_ += name;
        return out_ += "\":";
    }
    /// Ends the object.
    void close() { out_ += '}'; }

private:
    std::string& out_;
    bool isFirst_ = true;
};

} // namespace pipenet
