#pragma once

#include "host/database/DatabaseFixture.h"
#include "host/editor/DrawingDump.h"

#include "database/AcDbArc.h"
#include "database/AcDbCircle.h"
#include "database/AcDbPolyline.h"
#include "database/SymbolTableSearch.h"
#include "database/UndoJournal.h"
#include "editor/CommandProcessor.h"
#include "editor/EditorView.h"
#include "editor/SelectionSets.h"

#include <vector>

/// An empty drawing to run commands on.
class CommandFixture : public DatabaseFixture {
protected:
    CommandFixture() { database().undoJournal(); }
    ~CommandFixture() override { EXPECT_EQ(host_ed::openSelectionSets(), 0); }

    /// An entity's name, to be handed to acedCommand within the same expression.
    struct Name {
        explicit Name(AcDbObjectId id) { acdbGetAdsName(name, id); }
        ads_name name;
    };

    /// A selection set that goes at the end of its scope.
    struct Set {
        explicit Set(std::initializer_list<AcDbObjectId> ids) {
            acedSSAdd(nullptr, nullptr, name);
            for (const AcDbObjectId id : ids) {
                acedSSAdd(Name(id).name, name, name);
            }
        }
        Set(const Set&) = delete;
        Set& operator=(const Set&) = delete;
        ~Set() { acedSSFree(name); }
        ads_name name;
    };

    AcDbObjectId addCircle(const AcGePoint3d& center, double radius) {
        return add(std::make_unique<AcDbCircle>(center, AcGeVector3d(0.0, 0.0, 1.0), radius));
    }

    AcDbObjectId addArc(const AcGePoint3d& center, double radius, double from, double to) {
        return add(std::make_unique<AcDbArc>(center, radius, from, to));
    }

    AcDbObjectId addPolyline(std::initializer_list<AcGePoint2d> points, bool closed = false) {
        auto polyline = std::make_unique<AcDbPolyline>();
        for (const AcGePoint2d& point : points) {
            polyline->addVertexAt(polyline->numVerts(), point);
        }
        polyline->setClosed(closed ? Adesk::kTrue : Adesk::kFalse);
        return add(std::move(polyline));
    }

    /// What stands in model space and is not erased, in order.
    std::vector<AcDbObjectId> entities() {
        std::vector<AcDbObjectId> ids;
        const auto* model = host_db::peek<AcDbBlockTableRecord>(database().modelSpaceId());
        for (const AcDbObjectId id : model->entityIds()) {
            if (id.isValid()) {
                ids.push_back(id);
            }
        }
        return ids;
    }

    static int breakAt(AcDbObjectId id, const AcGePoint3d& first, const AcGePoint3d& second) {
        return acedCommand(RTSTR, L"break", RTENAME, Name(id).name, RTPOINT, asDblArray(first),
                           RTPOINT, asDblArray(second), 0);
    }

    static int trimAt(AcDbObjectId edge, AcDbObjectId object, const AcGePoint3d& at) {
        return acedCommand(RTSTR, L"trim", RTENAME, Name(edge).name, RTSTR, L"", RTLB, RTENAME,
                           Name(object).name, RTPOINT, asDblArray(at), RTLE, RTSTR, L"", 0);
    }

    static void expectLine(AcDbObjectId id, const AcGePoint3d& start, const AcGePoint3d& end) {
        const auto* line = host_db::peek<AcDbLine>(id);
        ASSERT_NE(line, nullptr);
        expectPoint(line->startPoint(), start.x, start.y, start.z);
        expectPoint(line->endPoint(), end.x, end.y, end.z);
    }

    static void expectVertices(AcDbObjectId id, const std::vector<AcGePoint3d>& points) {
        const auto* polyline = host_db::peek<AcDbPolyline>(id);
        ASSERT_NE(polyline, nullptr);
        ASSERT_EQ(polyline->numVerts(), points.size());
        EXPECT_EQ(polyline->isClosed(), Adesk::kFalse);
        for (unsigned int i = 0; i < points.size(); ++i) {
            AcGePoint3d point;
            polyline->getPointAt(i, point);
            expectPoint(point, points[i].x, points[i].y, points[i].z);
        }
    }

    /// Angles in degrees.
    static void expectArc(AcDbObjectId id, const AcGePoint3d& center, double radius, double from,
                          double to) {
        const auto* arc = host_db::peek<AcDbArc>(id);
        ASSERT_NE(arc, nullptr);
        constexpr double kDegree = 3.14159265358979323846 / 180.0;
        expectPoint(arc->center(), center.x, center.y, center.z);
        EXPECT_NEAR(arc->radius(), radius, 1e-9);
        EXPECT_NEAR(arc->startAngle(), from * kDegree, 1e-9);
        EXPECT_NEAR(arc->endAngle(), to * kDegree, 1e-9);
    }
};
