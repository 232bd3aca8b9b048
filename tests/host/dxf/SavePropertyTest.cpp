#include "SavedDrawing.h"

#include "database/AcDbArc.h"
#include "database/AcDbBlockReference.h"
#include "database/AcDbCircle.h"
#include "database/AcDbLine.h"
#include "database/AcDbPolyline.h"
#include "database/AcDbText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iomanip>
#include <random>
#include <sstream>

using dxf_test::addEntity;
using dxf_test::changeObject;
using dxf_test::LoadedDrawing;
using dxf_test::savedBytes;

namespace {

void put(std::wostream& out, const AcGePoint3d& point) {
    out << point.x << L',' << point.y << L',' << point.z << L' ';
}

/// All that can be asked of an entity, in words: kind, handle, layer, colour, shape, texts. Angles
/// and places in a plane of their own to twelve digits, for they are turned on their way.
std::wstring told(AcDbObjectId id) {
    const auto* const entity = host_db::peek<AcDbEntity>(id);
    std::wostringstream out;
    CString layer;
    entity->layer(layer);
    out << std::setprecision(17) << entity->dxfTypeName() << L' ' << id.handle().value() << L' '
        << layer.GetString() << L' ' << entity->colorIndex() << L' ';
    if (const auto* const line = AcDbLine::cast(entity)) {
        put(out, line->startPoint());
        put(out, line->endPoint());
    } else if (const auto* const arc = AcDbArc::cast(entity)) {
        put(out, arc->center());
        out << arc->radius() << std::setprecision(12) << L' ' << arc->startAngle() << L' '
            << arc->endAngle();
    } else if (const auto* const polyline = AcDbPolyline::cast(entity)) {
        for (unsigned i = 0; i < polyline->numVerts(); ++i) {
            AcGePoint3d point;
            double bulge = 0.0;
            double start = 0.0;
            double end = 0.0;
            polyline->getPointAt(i, point);
            polyline->getBulgeAt(i, bulge);
            polyline->getWidthsAt(i, start, end);
            put(out, point);
            out << bulge << L' ' << start << L' ' << end << L' ';
        }
        out << polyline->isClosed();
    } else if (const auto* const reference = AcDbBlockReference::cast(entity)) {
        put(out, reference->position());
        out << std::setprecision(12) << reference->rotation();
    } else if (const auto* const text = AcDbText::cast(entity)) {
        put(out, text->position());
        out << text->height() << L' ' << text->textStringConst();
    }
    // The applications' sections have no order among themselves.
    std::vector<std::wstring> sections;
    for (const std::wstring& line : dxf_test::xdataLines(*entity)) {
        if (line.starts_with(L"1001=")) {
            sections.emplace_back();
        }
        sections.back() += L'|' + line;
    }
    std::sort(sections.begin(), sections.end());
    for (const std::wstring& section : sections) {
        out << section;
    }
    return out.str();
}

std::vector<std::wstring> toldAll(const LoadedDrawing& drawing) {
    std::vector<std::wstring> all;
    for (const AcDbObjectId id : drawing.modelSpace()) {
        if (id.isValid()) {
            all.push_back(told(id));
        }
    }
    return all;
}

/// Changes a drawing at random.
class Editor {
public:
    Editor(const LoadedDrawing& drawing, unsigned seed) : drawing_(drawing), random_(seed) {}

    void step() {
        const auto ids = drawing_.modelSpace();
        const AcDbObjectId id = ids[below(ids.size())];
        if (below(5) == 0) {
            add();
        } else if (id.isValid()) {
            below(12) == 0 ? dxf_test::eraseObject(id) : change(id);
        }
    }

private:
    std::size_t below(std::size_t bound) {
        return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_);
    }
    double number() {
        const double coarse = static_cast<double>(below(2000)) / 8.0 - 100.0;
        return below(3) == 0 ? coarse / 3.0 : coarse;
    }
    AcGePoint3d point() { return {number(), number(), number()}; }

    void add() {
        const AcDbObjectId space = drawing_.database().modelSpaceId();
        if (below(2) == 0) {
            addEntity(space, new AcDbLine(point(), point()));
            return;
        }
        auto* const polyline = new AcDbPolyline;
        for (std::size_t i = 0; i < 2 + below(4); ++i) {
            polyline->addVertexAt(polyline->numVerts(), {number(), number()}, number());
        }
        addEntity(space, polyline);
    }

    void change(AcDbObjectId id) {
        if (below(3) == 0) {
            const wchar_t* const names[] = {L"\x7BA1\x9053\x7CFB\x7EDF", L"PLAIN", L"NEW"};
            const wchar_t* const name = names[below(3)];
            below(3) == 0 ? dxf_test::setXdata(id, name, {})
                          : dxf_test::setXdata(id, name, {L"\x6C34", below(2) ? L"a^b" : L" x\n"});
            return;
        }
        changeObject<AcDbEntity>(id, [this](AcDbEntity& entity) { changeShape(entity); });
    }

    void changeShape(AcDbEntity& entity) {
        if (below(4) == 0) {
            entity.setColorIndex(static_cast<Adesk::UInt16>(below(257)));
        }
        if (auto* const line = AcDbLine::cast(&entity)) {
            line->setEndPoint(point());
        } else if (auto* const arc = AcDbArc::cast(&entity)) {
            arc->setCenter(point());
            arc->setEndAngle(number() / 20.0);
        } else if (auto* const polyline = AcDbPolyline::cast(&entity)) {
            changePolyline(*polyline);
        } else if (auto* const reference = AcDbBlockReference::cast(&entity)) {
            reference->setPosition(point());
            reference->setRotation(number() / 20.0);
        } else if (auto* const text = AcDbText::cast(&entity)) {
            text->setHeight(1.0 + static_cast<double>(below(100)) / 7.0);
        }
    }

    void changePolyline(AcDbPolyline& polyline) {
        const auto at = static_cast<unsigned>(below(polyline.numVerts() + 1));
        const std::size_t kind = below(5);
        if (kind == 0) {
            polyline.addVertexAt(at, {number(), number()}, 0.0, 0.5, 0.25);
        } else if (kind == 1 && polyline.numVerts() > 2) {
            polyline.removeVertexAt(at);
        } else if (kind == 2) {
            polyline.setWidthsAt(at, 0.125, 0.0);
        } else if (kind == 3) {
            polyline.setBulgeAt(at, number());
        } else {
            polyline.setPointAt(at, {number(), number()});
            polyline.setClosed(below(2) == 0);
        }
    }

    const LoadedDrawing& drawing_;
    std::mt19937 random_;
};

class SaveProperty : public testing::TestWithParam<std::tuple<std::string, std::string>> {};

TEST_P(SaveProperty, RandomChangesAreReadBackAsTheyWereMade) {
    const auto& [version, form] = GetParam();
    const std::string bytes = dxf_test::richCase(version, form, "ANSI_936");
    for (unsigned seed = 1; seed <= 25; ++seed) {
        const LoadedDrawing drawing = LoadedDrawing::fromBytes(bytes);
        Editor editor(drawing, seed);
        for (int round = 0; round < 3; ++round) {
            for (int steps = 0; steps < 12; ++steps) {
                editor.step();
            }
            const LoadedDrawing again = LoadedDrawing::fromBytes(savedBytes(drawing.database()));
            ASSERT_EQ(toldAll(again), toldAll(drawing)) << "seed " << seed;
        }
        const std::string saved = savedBytes(drawing.database());
        EXPECT_TRUE(savedBytes(LoadedDrawing::fromBytes(saved).database()) == saved);
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, SaveProperty,
                         testing::Combine(testing::Values("R2000", "R2018"),
                                          testing::Values("text", "binary")),
                         [](const auto& instance) {
                             return std::get<0>(instance.param) + "_" + std::get<1>(instance.param);
                         });

} // namespace
