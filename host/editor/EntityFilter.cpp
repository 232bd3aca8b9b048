#include "editor/EntityFilter.h"

#include "database/AcDbEntity.h"
#include "platform/WideCharacters.h"

#include <algorithm>

namespace host_ed {

/// Reads a filter's chain from front to back. Open groups are kept on a stack; a group that ends
/// becomes one step behind those of its conditions.
class EntityFilter::Compiler {
public:
    explicit Compiler(const AcDbDatabase& database) : database_(database) {
        groups_.push_back({Op::And, 0});
    }

    bool read(const resbuf* chain) {
        while (chain != nullptr) {
            if (!readItem(chain)) {
                return false;
            }
        }
        if (groups_.size() != 1 || hasComparison_) {
            return false;
        }
        steps_.push_back({Op::And, groups_.back().count, nullptr});
        return true;
    }

    std::vector<Step> takeSteps() { return std::move(steps_); }

private:
    struct Group {
        Op op;
        std::size_t count;
    };
    struct Operator {
        const wchar_t* begin;
        const wchar_t* end;
        Op op;
        std::size_t least;
        std::size_t most;
    };

    static constexpr std::size_t kNoLimit = ~std::size_t{0};
    static constexpr Operator kOperators[] = {{L"<and", L"and>", Op::And, 1, kNoLimit},
                                              {L"<or", L"or>", Op::Or, 1, kNoLimit},
                                              {L"<xor", L"xor>", Op::Xor, 2, 2},
                                              {L"<not", L"not>", Op::Not, 1, 1}};

    /// Reads one condition or operator and moves behind it.
    bool readItem(const resbuf*& item) {
        const resbuf& current = *item;
        item = item->rbnext;
        if (current.restype == AcDb::kDxfOperator) {
            return current.resval.rstring != nullptr && readOperator(current.resval.rstring);
        }
        if (current.restype == AcDb::kDxfXDataStart) {
            return readApplications(item);
        }
        switch (host_db::valueKind(current.restype)) {
        case host_db::ValueKind::Text:
            return !hasComparison_ && add(textTest(current, database_));
        case host_db::ValueKind::Short:
            return add(numberTest(current, takeComparison(), database_));
        default:
            return false;
        }
    }

    bool readOperator(const wchar_t* text) {
        if (hasComparison_) {
            return false;
        }
        for (const Operator& it : kOperators) {
            if (host_text::compareNoCase(text, it.begin) == 0) {
                groups_.push_back({it.op, 0});
                return true;
            }
            if (host_text::compareNoCase(text, it.end) == 0) {
                return endGroup(it);
            }
        }
        hasComparison_ = findComparison(text, comparison_);
        return hasComparison_;
    }

    bool endGroup(const Operator& operation) {
        const Group group = groups_.back();
        if (groups_.size() == 1 || group.op != operation.op || group.count < operation.least ||
            group.count > operation.most) {
            return false;
        }
        groups_.pop_back();
        ++groups_.back().count;
        steps_.push_back({group.op, group.count, nullptr});
        return true;
    }

    /// The applications behind group -3, with or without list marks around them.
    bool readApplications(const resbuf*& item) {
        std::vector<const wchar_t*> patterns;
        for (; item != nullptr; item = item->rbnext) {
            if (item->restype == AcDb::kDxfRegAppName && item->resval.rstring != nullptr) {
                patterns.push_back(item->resval.rstring);
            } else if (item->restype != RTLB && item->restype != RTLE) {
                break;
            }
        }
        return !hasComparison_ && !patterns.empty() && add(xdataTest(patterns, database_));
    }

    bool add(std::shared_ptr<const EntityTest> test) {
        if (test == nullptr) {
            return false;
        }
        ++groups_.back().count;
        steps_.push_back({Op::Test, 0, std::move(test)});
        return true;
    }

    Comparison takeComparison() {
        const bool named = hasComparison_;
        hasComparison_ = false;
        return named ? comparison_ : Comparison::Equal;
    }

    const AcDbDatabase& database_;
    std::vector<Group> groups_;
    std::vector<Step> steps_;
    Comparison comparison_ = Comparison::Equal;
    bool hasComparison_ = false;
};

std::optional<EntityFilter> EntityFilter::compile(const resbuf* chain,
                                                  const AcDbDatabase& database) {
    Compiler compiler(database);
    if (!compiler.read(chain)) {
        return std::nullopt;
    }
    EntityFilter filter;
    filter.steps_ = compiler.takeSteps();
    const auto isTest = [](const Step& step) { return step.op == Op::Test; };
    const bool asksForApplicationsAlone =
        std::all_of(filter.steps_.begin(), filter.steps_.end(), [&](const Step& step) {
            return !isTest(step) || step.test->asksForApplicationsAlone();
        });
    if (asksForApplicationsAlone &&
        std::any_of(filter.steps_.begin(), filter.steps_.end(), isTest)) {
        filter.answers_.resize(database.applications().setCount(), Answer::Unknown);
    }
    return filter;
}

bool EntityFilter::passes(const AcDbEntity& entity) const {
    if (answers_.empty()) {
        return worksOut(entity);
    }
    Answer& answer = answers_[entity.applicationSet()];
    if (answer == Answer::Unknown) {
        answer = worksOut(entity) ? Answer::Passes : Answer::Fails;
    }
    return answer == Answer::Passes;
}

bool EntityFilter::worksOut(const AcDbEntity& entity) const {
    values_.clear();
    for (const Step& step : steps_) {
        if (step.op == Op::Test) {
            values_.push_back(step.test->passes(entity) ? 1 : 0);
            continue;
        }
        const auto first = values_.end() - static_cast<std::ptrdiff_t>(step.count);
        const auto held = static_cast<std::size_t>(std::count(first, values_.end(), 1));
        values_.erase(first, values_.end());
        bool value = held == step.count;
        if (step.op == Op::Or) {
            value = held > 0;
        } else if (step.op == Op::Xor) {
            value = held == 1;
        } else if (step.op == Op::Not) {
            value = held == 0;
        }
        values_.push_back(value ? 1 : 0);
    }
    return values_.back() != 0;
}

} // namespace host_ed
