#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace pipenet {

/// Takes a text piece by piece, in its order.
using TextSink = std::function<void(std::string_view)>;

/// A text that stands whole, or one that is made while it is written, so that it never stands in
/// memory as a whole however large it is.
class AnswerText {
public:
    using Writer = std::function<void(const TextSink&)>;

    AnswerText() = default;
    explicit AnswerText(std::string whole) : whole_(std::move(whole)) {}
    /// @param write is asked each time that the text is; what it reads must live as long.
    explicit AnswerText(Writer write) : write_(std::move(write)) {}
    AnswerText& operator=(std::string whole) { return *this = AnswerText(std::move(whole)); }

    void writeTo(const TextSink& sink) const;

private:
    std::string whole_;
    Writer write_;
};

} // namespace pipenet
