#include "editor/CommandInput.h"

#include "database/OpenObject.h"
#include "editor/SelectionSets.h"
#include "geometry/AcGeMatrix3d.h"
#include "platform/TextToNumber.h"

#include <charconv>
#include <cmath>

namespace host_ed {
namespace {

using Kind = CommandInput::Kind;

AcGePoint3d worldPoint(const resbuf& item, const AcGeMatrix3d& ucs) {
    const auto& p = item.resval.rpoint;
    return ucs * AcGePoint3d(p[0], p[1], p[2]);
}

std::optional<std::vector<AcDbObjectId>> membersOf(const ads_name set) {
    Adesk::Int32 length = 0;
    if (acedSSLength(set, &length) != RTNORM) {
        return std::nullopt;
    }
    std::vector<AcDbObjectId> ids;
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name name;
        acedSSName(set, i, name);
        ids.push_back(AcDbObjectId::fromOldId(name[0]));
    }
    return ids;
}

std::optional<CommandInput> plainInput(const resbuf& item, const AcGeMatrix3d& ucs) {
    CommandInput input;
    switch (item.restype) {
    case RTSTR:
        input.text = item.resval.rstring == nullptr ? L"" : item.resval.rstring;
        return input;
    case RTSHORT:
    case RTLONG:
        input.kind = Kind::Number;
        input.number = item.restype == RTSHORT ? item.resval.rint : item.resval.rlong;
        return input;
    case RTREAL:
    case RTANG:
        input.kind = Kind::Number;
        input.number = item.resval.rreal;
        return input;
    case RTPOINT:
    case RT3DPOINT:
        input.kind = Kind::Point;
        input.point = worldPoint(item, ucs);
        return input;
    case RTENAME:
        input.kind = Kind::Entity;
        input.ids.resize(1);
        return acdbGetObjectId(input.ids[0], item.resval.rlname) == Acad::eOk ? std::optional(input)
                                                                              : std::nullopt;
    case RTPICKS: {
        auto ids = membersOf(item.resval.rlname);
        if (!ids.has_value()) {
            return std::nullopt;
        }
        input.kind = Kind::Set;
        input.ids = std::move(*ids);
        return input;
    }
    default:
        return std::nullopt;
    }
}

/// An entity and a point in either order, up to RTLE, where `item` is left.
std::optional<CommandInput> pickInput(const resbuf*& item, const AcGeMatrix3d& ucs) {
    CommandInput pick;
    pick.kind = Kind::Entity;
    for (item = item->rbnext; item != nullptr && item->restype != RTLE; item = item->rbnext) {
        const auto part = plainInput(*item, ucs);
        const bool isEntity = part.has_value() && part->kind == Kind::Entity && pick.ids.empty();
        const bool isPoint =
            part.has_value() && part->kind == Kind::Point && !pick.point.has_value();
        if (isEntity) {
            pick.ids = part->ids;
        } else if (isPoint) {
            pick.point = part->point;
        } else {
            return std::nullopt;
        }
    }
    const bool isWhole = item != nullptr && !pick.ids.empty() && pick.point.has_value();
    return isWhole ? std::optional(pick) : std::nullopt;
}

/// The coordinates of "x,y" or "x,y,z"; nullopt for another text.
std::optional<AcGeVector3d> coordinatesOf(const std::wstring& text) {
    double values[3] = {0.0, 0.0, 0.0};
    const wchar_t* at = text.c_str();
    int count = 0;
    while (count < 3) {
        wchar_t* end = nullptr;
        values[count] = platform_crt::wcstod(at, &end);
        if (end == at || !std::isfinite(values[count])) {
            return std::nullopt;
        }
        ++count;
        at = end;
        if (*at != L',') {
            break;
        }
        ++at;
    }
    const bool isWhole = *at == L'\0' && count >= 2 && at[-1] != L',';
    return isWhole ? std::optional(AcGeVector3d(values[0], values[1], values[2])) : std::nullopt;
}

std::wstring nameText(const resbuf& item) {
    if (item.restype == RTENAME) {
        ACHAR handle[17];
        AcDbObjectId::fromOldId(item.resval.rlname[0]).handle().getIntoAsciiBuffer(handle);
        return std::wstring(L"entity:") + handle;
    }
    Adesk::Int32 length = 0;
    acedSSLength(item.resval.rlname, &length);
    return L"set:" + std::to_wstring(length);
}

std::wstring itemText(const resbuf& item) {
    const auto& p = item.resval.rpoint;
    switch (item.restype) {
    case RTSTR:
        return L"\"" + std::wstring(item.resval.rstring == nullptr ? L"" : item.resval.rstring) +
               L"\"";
    case RTSHORT:
        return std::to_wstring(item.resval.rint);
    case RTLONG:
        return std::to_wstring(item.resval.rlong);
    case RTREAL:
    case RTANG:
        return textOf(item.resval.rreal);
    case RTPOINT:
    case RT3DPOINT:
        return textOf(p[0]) + L"," + textOf(p[1]) + L"," + textOf(p[2]);
    case RTENAME:
    case RTPICKS:
        return nameText(item);
    case RTLB:
        return L"(";
    case RTLE:
        return L")";
    default:
        return L"code:" + std::to_wstring(item.restype);
    }
}

} // namespace

std::optional<std::vector<CommandInput>> inputsOf(const resbuf* chain, const AcGeMatrix3d& ucs) {
    std::vector<CommandInput> inputs;
    for (const resbuf* item = chain; item != nullptr; item = item->rbnext) {
        auto input = item->restype == RTLB ? pickInput(item, ucs) : plainInput(*item, ucs);
        if (!input.has_value()) {
            return std::nullopt;
        }
        inputs.push_back(std::move(*input));
    }
    return inputs;
}

std::vector<CommandInput> inputsOf(const std::wstring& line) {
    std::vector<CommandInput> inputs(1);
    for (const wchar_t character : line) {
        if (character == L' ') {
            inputs.emplace_back();
        } else {
            inputs.back().text += character;
        }
    }
    return inputs;
}

std::optional<AcGePoint3d> pointOf(const CommandInput& input, const AcGeMatrix3d& ucs,
                                   const AcGePoint3d& last) {
    if (input.kind == Kind::Point) {
        return input.point;
    }
    if (input.kind != Kind::Text || input.text.empty()) {
        return std::nullopt;
    }
    const bool isRelative = input.text[0] == L'@';
    if (isRelative && input.text.size() == 1) {
        return last;
    }
    const auto given = coordinatesOf(input.text.substr(isRelative ? 1 : 0));
    if (!given.has_value()) {
        return std::nullopt;
    }
    return isRelative ? last + ucs * *given : ucs * (AcGePoint3d::kOrigin + *given);
}

std::wstring textOf(const resbuf* chain) {
    std::wstring text;
    for (const resbuf* item = chain; item != nullptr; item = item->rbnext) {
        text += L" " + itemText(*item);
    }
    return text;
}

std::wstring textOf(double number) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return {digits, end};
}

} // namespace host_ed
