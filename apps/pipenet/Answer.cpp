#include "Answer.h"

namespace pipenet {

namespace {

/// What stands at the end of an object on a line of its own.
constexpr std::string_view kObjectEnd = "}\n";

/// Writes an object with one member more. Its end is held back until all the rest is written.
void writeWithMember(const AnswerText& object, const std::string& member, const TextSink& sink) {
    std::string held;
    object.writeTo([&held, &sink](std::string_view piece) {
        held += piece;
        if (held.size() > kObjectEnd.size()) {
            const std::size_t sure = held.size() - kObjectEnd.size();
            sink(std::string_view(held).substr(0, sure));
            held.erase(0, sure);
        }
    });
    sink(member);
    sink(held);
}

} // namespace

void writeAnswer(const Answer& answer, bool timing, const TextSink& sink) {
    if (!timing) {
        answer.text.writeTo(sink);
    } else if (answer.isJson) {
        std::string member = ",\"timing\":";
        appendJson(member, timingJson(answer.timing));
        writeWithMember(answer.text, member, sink);
    } else {
        answer.text.writeTo(sink);
        sink(timingLine(answer.timing));
    }
}

} // namespace pipenet
