#include "NetworkJson.h"

#include "JsonRecords.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

/// A text on its way to a sink, in pieces of about this many bytes.
class TextPieces {
public:
    explicit TextPieces(const TextSink& sink) : sink_(sink) {}

    std::string& text() { return text_; }
    /// Hands over what has been gathered, if that is a piece.
    void endRecord() {
        constexpr std::size_t piece = std::size_t{64} << 10;
        if (text_.size() >= piece) {
            end();
        }
    }
    void end() {
        sink_(text_);
        text_.clear();
    }

private:
    const TextSink& sink_;
    std::string text_;
};

template<class Records, class Append>
void writeRecords(TextPieces& pieces, Records& records, const Append& append) {
    pieces.text() += '[';
    for (INT_PTR i = 0; i < records.GetSize(); ++i) {
        if (i > 0) {
            pieces.text() += ',';
        }
        append(pieces.text(), records[i]);
        pieces.endRecord();
    }
    pieces.text() += ']';
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
