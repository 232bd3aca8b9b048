#include "Answer.h"

namespace pipenet {

std::string withTiming(const Answer& answer) {
    if (!answer.isJson) {
        return answer.text + timingLine(answer.timing);
    }
    // The object's closing brace stands last, before the line end.
    std::string text = answer.text.substr(0, answer.text.rfind('}'));
    text += ",\"timing\":";
    appendJson(text, timingJson(answer.timing));
    return text + "}\n";
}

} // namespace pipenet
