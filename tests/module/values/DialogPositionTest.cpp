#include "utilities/DialogPosition.h"
#include "module/utilities/UtilitiesTest.h"

#include <filesystem>

namespace module_tests {
namespace {

class DialogPositionTest : public UtilitiesTest {
protected:
    void SetUp() override {
        UtilitiesTest::SetUp();
        place(40, 50, 340, 250);
    }

    void place(int left, int top, int right, int bottom) {
        const CRect rect(left, top, right, bottom);
        window.MoveWindow(&rect);
        forget();
    }
    CRect rect() const {
        CRect found;
        window.GetWindowRect(&found);
        return found;
    }
    /// The user file, `left` and `top` of the dialog as lines of it.
    void writeUserFile(const std::string& bytes) const {
        drawing.folder().write("SysCon/User.Kdp", bytes);
    }
    std::string userFile() const { return drawing.folder().read("SysCon/User.Kdp"); }
    bool hasUserFile() const {
        return std::filesystem::exists(drawing.folder().path() / "SysCon/User.Kdp");
    }

    /// What reading a place tells.
    static Lines reading() {
        return {"user open", "user get 横断面\\对话框位置\\left",
                "user get 横断面\\对话框位置\\top", "user close"};
    }
    /// The same with the window moved in the end.
    static Lines movingTo(const std::string& place) {
        Lines lines = reading();
        lines.push_back("move " + place + " repaint");
        return lines;
    }

    CWnd window;
};

TEST_F(DialogPositionTest, UnknownDialogMovesToItsFirstPlace) {
    PelGetRect(L"横断面", &window);
    EXPECT_EQ(events(), movingTo("150 150 300 200"));
    EXPECT_EQ(rect(), CRect(150, 150, 450, 350));
    EXPECT_FALSE(hasUserFile());
}

TEST_F(DialogPositionTest, SavedPlaceIsTakenAndTheSizeStays) {
    writeUserFile("横断面\\对话框位置\\left = 12\n横断面\\对话框位置\\top = -7\n");
    PelGetRect(L"横断面", &window);
    EXPECT_EQ(events(), movingTo("12 -7 300 200"));
    EXPECT_EQ(rect(), CRect(12, -7, 312, 193));
}

TEST_F(DialogPositionTest, EdgesAreKnownEachByItself) {
    writeUserFile("横断面\\对话框位置\\top = 20\n");
    PelGetRect(L"横断面", &window);
    EXPECT_EQ(rect(), CRect(150, 20, 450, 220));
    writeUserFile("横断面\\对话框位置\\left = 30\n");
    PelGetRect(L"横断面", &window);
    EXPECT_EQ(rect(), CRect(30, 150, 330, 350));
}

TEST_F(DialogPositionTest, LeftOfMinusTenThousandLeavesTheWindowWhereItIs) {
    writeUserFile("横断面\\对话框位置\\left = -10000\n横断面\\对话框位置\\top = 20\n");
    PelGetRect(L"横断面", &window);
    EXPECT_EQ(events(), reading());
    EXPECT_EQ(rect(), CRect(40, 50, 340, 250));
}

TEST_F(DialogPositionTest, OnlyThatVeryLeftKeepsTheWindow) {
    writeUserFile("横断面\\对话框位置\\left = -9999\n横断面\\对话框位置\\top = -10000\n");
    PelGetRect(L"横断面", &window);
    EXPECT_EQ(rect(), CRect(-9999, -10000, -9699, -9800));
}

TEST_F(DialogPositionTest, WindowLeftOfTheScreenIsNeitherMovedNorSaved) {
    for (const int right : {0, -1}) {
        place(right - 300, 50, right, 250);
        PelGetRect(L"横断面", &window);
        PelSaveRect(L"横断面", &window);
        EXPECT_EQ(events(), Lines{});
        EXPECT_EQ(rect(), CRect(right - 300, 50, right, 250));
    }
    EXPECT_FALSE(hasUserFile());
}

TEST_F(DialogPositionTest, WindowWithOneColumnOnTheScreenIsMovedAndSaved) {
    place(-299, 50, 1, 250);
    PelSaveRect(L"横断面", &window);
    EXPECT_EQ(userFile(), "横断面\\对话框位置\\left = -299\n横断面\\对话框位置\\top = 50\n");
    forget();
    PelGetRect(L"横断面", &window);
    EXPECT_EQ(events(), movingTo("-299 50 300 200"));
}

TEST_F(DialogPositionTest, PlaceIsSavedLeftFirst) {
    PelSaveRect(L"横断面", &window);
    EXPECT_EQ(events(), (Lines{"user open", "user set 横断面\\对话框位置\\left 40",
                               "user set 横断面\\对话框位置\\top 50", "user close"}));
    EXPECT_EQ(userFile(), "横断面\\对话框位置\\left = 40\n横断面\\对话框位置\\top = 50\n");
}

TEST_F(DialogPositionTest, SavedPlaceReplacesTheOneBefore) {
    writeUserFile("# mine\r\n横断面\\对话框位置\\top = 1\r\nother = x\r\n"
                  "横断面\\对话框位置\\left = 2\r\n");
    PelSaveRect(L"横断面", &window);
    EXPECT_EQ(userFile(), "# mine\r\n横断面\\对话框位置\\top = 50\r\nother = x\r\n"
                          "横断面\\对话框位置\\left = 40\r\n");
}

TEST_F(DialogPositionTest, DialogsHavePlacesOfTheirOwn) {
    PelSaveRect(L"横断面", &window);
    place(1, 2, 101, 102);
    PelSaveRect(L"纵断面", &window);
    PelGetRect(L"横断面", &window);
    EXPECT_EQ(rect(), CRect(40, 50, 140, 150)) << "width and height are not kept";
    PelGetRect(L"纵断面", &window);
    EXPECT_EQ(rect(), CRect(1, 2, 101, 102));
}

TEST_F(DialogPositionTest, UserFileThatCannotBeReadStaysAsItIs) {
    writeUserFile("this is no entry\n");
    PelSaveRect(L"横断面", &window);
    EXPECT_EQ(userFile(), "this is no entry\n");
    PelGetRect(L"横断面", &window);
    EXPECT_EQ(rect(), CRect(150, 150, 450, 350));
}

} // namespace
} // namespace module_tests
