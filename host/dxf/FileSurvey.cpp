#include "dxf/FileSurvey.h"

#include "dxf/Numbers.h"
#include "dxf/TagCursor.h"

#include <algorithm>

namespace host_dxf {

namespace {

/// The version from which on texts are UTF-8. Versions compare as text.
constexpr std::string_view firstUtf8Version = "AC1021";

/// Handles beyond this are no basis for new ones: there would be none left above them.
constexpr std::uint64_t greatestUsefulHandle = std::uint64_t{1} << 62;

/// Length of the UTF-8 sequence that starts with `lead`, 0 for a byte that starts none.
std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return 0;
    }
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

bool isValidUtf8(std::string_view bytes) {
    std::size_t i = 0;
    while (i < bytes.size()) {
        const std::size_t length = sequenceLength(static_cast<unsigned char>(bytes[i]));
        if (length == 0 || bytes.size() - i < length) {
            return false;
        }
        for (std::size_t k = 1; k < length; ++k) {
            if ((static_cast<unsigned char>(bytes[i + k]) & 0xC0) != 0x80) {
                return false;
            }
        }
        i += length;
    }
    return true;
}

/// Takes note of the groups that matter, in file order.
class Surveyor {
public:
    explicit Surveyor(FileSurvey& survey) : survey_(survey) {}

    void note(const DxfTag& tag) {
        switch (tag.code) {
        case 0:
            startRecord(tag);
            break;
        case 9:
            variable_ = trimBlanks(tag.text);
            break;
        case 100:
            inLayoutFields_ = tag.text == "AcDbLayout";
            break;
        case 5:
        case 105:
            noteHandle(tag);
            break;
        default:
            noteText(tag);
        }
    }

private:
    void startRecord(const DxfTag& tag) {
        record_ = tag.text;
        recordPosition_ = tag.position();
        variable_ = {};
        inLayoutFields_ = false;
        named_ = false;
        if (record_ == "LAYOUT") {
            survey_.layouts.emplace_back();
        }
    }

    void noteHandle(const DxfTag& tag) {
        std::uint64_t handle = 0;
        if (!parseHandle(tag.text, handle) || handle > greatestUsefulHandle) {
            return;
        }
        if (variable_ == "$HANDSEED") {
            survey_.handleSeed = handle;
        } else {
            survey_.highestHandle = std::max(survey_.highestHandle, handle);
        }
    }

    void noteText(const DxfTag& tag) {
        if (!variable_.empty()) {
            noteVariable(tag);
        } else if (tag.code == 2 && record_ == "BLOCK" && !named_) {
            survey_.blocks.push_back(tag.text);
            named_ = true;
        } else if (tag.code == 2 && record_ == "TABLE" && tag.text == "APPID") {
            noteApplicationTable();
        } else if (inLayoutFields_ && record_ == "LAYOUT") {
            noteLayout(tag);
        }
    }

    void noteVariable(const DxfTag& tag) {
        if (variable_ == "$ACADVER" && tag.code == 1) {
            survey_.version = trimBlanks(tag.text);
        } else if (variable_ == "$DWGCODEPAGE" && tag.code == 3) {
            survey_.codePage = trimBlanks(tag.text);
        }
    }

    void noteApplicationTable() {
        if (!survey_.hasApplicationTable) {
            survey_.hasApplicationTable = true;
            survey_.applicationTable = recordPosition_;
        }
    }

    void noteLayout(const DxfTag& tag) {
        FileSurvey::Layout& layout = survey_.layouts.back();
        if (tag.code == 1) {
            layout.name = tag.text;
        } else if (tag.code == 330 && layout.block == 0) {
            parseHandle(tag.text, layout.block);
        }
    }

    FileSurvey& survey_;
    std::string_view record_;
    FilePosition recordPosition_;
    std::string_view variable_;
    bool inLayoutFields_ = false;
    bool named_ = false;
};

bool textsAreUtf8(const DxfSource& source, const FileSurvey& survey) {
    if (source.hasByteOrderMark() || survey.version >= firstUtf8Version) {
        return true;
    }
    // A file that names neither version nor code page tells its encoding by its bytes alone.
    return survey.version.empty() && survey.codePage.empty() && source.isText() &&
           isValidUtf8(source.bytes());
}

} // namespace

FileSurvey surveyFile(const DxfSource& source) {
    FileSurvey survey;
    Surveyor surveyor(survey);
    try {
        TagCursor cursor(source);
        for (DxfTag tag; cursor.nextUnparsed(tag);) {
            surveyor.note(tag);
        }
    } catch (const DxfFailure&) {
        // Reported with its line by the reader, which comes to the same place.
    }
    survey.isUtf8 = textsAreUtf8(source, survey);
    return survey;
}

} // namespace host_dxf
