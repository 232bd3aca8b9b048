#pragma once

#include "database/AcDbDatabase.h"
#include "database/ResultBuffer.h"
#include "editor/EntityTest.h"

#include <memory>
#include <optional>
#include <vector>

class AcDbEntity;

namespace host_ed {

/// A selection filter, worked out once for a drawing and then asked for each entity.
///
/// The chain is a list of conditions, all of which must hold:
/// - 0 type name, 2 name of the block that a reference shows, 6 linetype, 7 text style, 8 layer,
///   410 layout (Model or a layout's name): texts with wild cards (WildCard), 5 a handle;
/// - 62 colour number (256 by layer, 0 by block), 67 paper space (1) or model space (0), 60
///   visibility: numbers, equal unless group -4 before them names a comparison: "=", "!=", "/=",
///   "<>", "<", "<=", ">", ">=", "&" (some bit in common), "&=" (all bits), "*" (any);
/// - -3 followed by one or more items of group 1001: the entity carries data of an application that
///   matches each of these patterns;
/// - groups between -4 "<and" and -4 "and>", "<or" and "or>" (one or more conditions), "<xor" and
///   "xor>" (two), "<not" and "not>" (one), nested to any depth; their case is of no account.
class EntityFilter {
public:
    /// nullopt for a malformed chain: an unknown code, an operator out of place, with too few or
    /// too many conditions, or without its end; a comparison without a number behind it; -3 without
    /// an application. nullptr gives the filter that everything passes.
    static std::optional<EntityFilter> compile(const resbuf* chain, const AcDbDatabase& database);

    /// Cost: one small test for each condition, nothing is allocated; a look into a table when the
    /// conditions ask for applications alone.
    bool passes(const AcDbEntity& entity) const;

private:
    enum class Op { Test, And, Or, Xor, Not };
    /// A step of the filter in the order of working out: a test gives a truth value, an operator
    /// takes the last `count` ones and gives one.
    struct Step {
        Op op = Op::Test;
        std::size_t count = 0;
        std::shared_ptr<const EntityTest> test;
    };
    class Compiler;

    enum class Answer : char { Unknown, Passes, Fails };

    bool worksOut(const AcDbEntity& entity) const;

    std::vector<Step> steps_;
    mutable std::vector<char> values_;
    /// By the entity's set of applications; empty when more than that is asked for.
    mutable std::vector<Answer> answers_;
};

} // namespace host_ed
