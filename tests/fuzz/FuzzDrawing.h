#pragma once

#include "ByteReader.h"
#include "module/support/DrawingBuilder.h"

#include <string>
#include <vector>

namespace fuzz {

/// A small drawing of pipes, wells, tanks and other entities, made from bytes: the same bytes give
/// the same drawing with the same handles.
class FuzzDrawing {
public:
    /// At most so many pipes, since trying every way through pipes that all cross takes time that
    /// grows without measure with their number.
    static constexpr int kMostPipes = 7;

    /// @param drawing is started anew.
    FuzzDrawing(module_tests::DrawingBuilder& drawing, ByteReader& bytes);

    const std::vector<AcDbObjectId>& ids() const { return ids_; }
    const std::vector<AcDbObjectId>& pipes() const { return pipes_; }
    const std::vector<AcDbObjectId>& blocks() const { return blocks_; }
    /// The drawing as it would be saved; why it is not when it holds a number that is not finite.
    std::string saved() const;

private:
    void readSettings(ByteReader& bytes);
    void addEntity(ByteReader& bytes);
    void addPipe(ByteReader& bytes);
    void addWell(ByteReader& bytes);
    void addTank(ByteReader& bytes);
    void setOddText(ByteReader& bytes);

    module_tests::DrawingBuilder& drawing_;
    std::vector<AcDbObjectId> ids_;
    std::vector<AcDbObjectId> pipes_;
    std::vector<AcDbObjectId> blocks_;
};

} // namespace fuzz
