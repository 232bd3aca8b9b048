#include "NetworkJson.h"

#include "JsonRecords.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

/// A text on its way to a sink, in pieces.
class TextPieces {
public:
    explicit TextPieces(const TextSink& sink) : sink_(sink) {}

    std::string& text() { return text_; }
    /// To be called where the text may be parted: hands over what has been gathered, once that is
    /// enough.
    void part() {
        if (text_.size() >= kPiece) {
            end();
        }
    }
    void end() {
        sink_(text_);
        text_.clear();
    }

private:
    static constexpr std::size_t kPiece = std::size_t{64} << 10;

    const TextSink& sink_;
    std::string text_;
};

template<class Records, class Append>
void writeRecords(TextPieces& pieces, Records& records, const Append& append) {
    appendItems(pieces.text(), records.GetSize(), [&](INT_PTR i) {
        append(pieces.text(), records[i]);
        pieces.part();
    });
}

void writeGravity(TextPieces& pieces, int result, const GravitySearchObject& network) {
    std::string& out = pieces.text();
    out += fmt::format(R"({{"result":{},"kind":"gravity","rootWell":{},"pathSegs":)", result,
                       network.rootWell);
    appendValue(out, network.pathSegs);
    out += ",\"pathWells\":";
    appendValue(out, network.pathWells);
    out += ",\"wells\":";
    writeRecords(pieces, network.wells, appendWell);
    out += ",\"segs\":";
    writeRecords(pieces, network.segs, appendGravitySeg);
    out += "}\n";
}

void writePressure(TextPieces& pieces, int result, PressureSearchObject& network) {
    std::string& out = pieces.text();
    out += fmt::format(R"({{"result":{},"kind":"pressure","rootSeg":{},"segs":)", result,
                       network.rootSeg);
    writeRecords(pieces, network.segs, appendPressureSeg);
    out += "}\n";
}

void writeOutcome(TextPieces& pieces, const SearchOutcome& outcome) {
    if (const GravitySearchObject* network = gravityNetwork(outcome)) {
        writeGravity(pieces, outcome.result, *network);
    } else if (PressureSearchObject* pressure = pressureNetwork(outcome)) {
        writePressure(pieces, outcome.result, *pressure);
    } else {
        appendJson(pieces.text(), {{"result", outcome.result}, {"kind", nullptr}});
        pieces.text() += '\n';
    }
}

} // namespace

AnswerText networkJson(std::shared_ptr<const SearchOutcome> outcome) {
    return AnswerText([outcome = std::move(outcome)](const TextSink& sink) {
        TextPieces pieces(sink);
        writeOutcome(pieces, *outcome);
        pieces.end();
    });
}

} // namespace pipenet
