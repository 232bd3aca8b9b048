#include "SavedDrawing.h"

#include "dxf/SaveDxf.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace dxf_test {

std::string savedBytes(const AcDbDatabase& database) {
    std::string bytes;
    std::string error;
    EXPECT_TRUE(host_dxf::drawingBytes(database, "test.dxf", bytes, error)) << error;
    return bytes;
}

std::string fileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string temporaryPath(const std::string& name) {
    return testing::TempDir() + "dxf_" + std::to_string(::getpid()) + "_" + name;
}

void runScript(const std::string& script, const std::vector<std::string>& arguments) {
    std::string command = "/usr/bin/python3 -B '" TKVLT_TESTS_DIR "/host/dxf/" + script + "'";
    for (const std::string& argument : arguments) {
        command += " '";
        for (const char each : argument) {
            command += each == '\'' ? std::string("'\\''") : std::string(1, each);
        }
        command += "'";
    }
    EXPECT_EQ(std::system(command.c_str()), 0)
        << command << "\nneeds the system's python3 with the package python3-ezdxf";
}

void askAnother(const AcDbDatabase& database, const std::string& name,
                const std::vector<std::string>& questions) {
    const std::string path = temporaryPath(name + ".dxf");
    std::string error;
    ASSERT_TRUE(host_dxf::saveDrawing(database, path, error)) << error;
    std::vector<std::string> arguments{path};
    arguments.insert(arguments.end(), questions.begin(), questions.end());
    runScript("check_saved.py", arguments);
    std::filesystem::remove(path);
}

std::string richCase(const std::string& version, const std::string& form,
                     const std::string& codePage) {
    const std::string path = temporaryPath("rich_" + version + form + codePage + ".dxf");
    runScript("make_rich_case.py", {path, version, form, codePage});
    std::string bytes = fileBytes(path);
    std::filesystem::remove(path);
    return bytes;
}

void eraseObject(AcDbObjectId id) {
    changeObject<AcDbObject>(id, [](AcDbObject& object) { object.erase(); });
}

AcDbObjectId addEntity(AcDbObjectId block, AcDbEntity* entity) {
    AcDbObjectId id;
    changeObject<AcDbBlockTableRecord>(block, [&](AcDbBlockTableRecord& record) {
        EXPECT_EQ(record.appendAcDbEntity(id, entity), Acad::eOk);
    });
    entity->close();
    return id;
}

AcDbObjectId addRecord(AcDbObjectId table, AcDbSymbolTableRecord* record) {
    AcDbObjectId id;
    changeObject<AcDbSymbolTable>(
        table, [&](AcDbSymbolTable& opened) { EXPECT_EQ(opened.add(id, record), Acad::eOk); });
    record->close();
    return id;
}

void setXdata(AcDbObjectId id, const wchar_t* application,
              std::initializer_list<const wchar_t*> texts) {
    id.database()->registerApplication(application);
    resbuf* const chain = acutBuildList(AcDb::kDxfRegAppName, application, RTNONE);
    resbuf* last = chain;
    for (const wchar_t* const text : texts) {
        last->rbnext = acutBuildList(AcDb::kDxfXDAsciiString, text, RTNONE);
        last = last->rbnext;
    }
    changeObject<AcDbObject>(
        id, [chain](AcDbObject& object) { EXPECT_EQ(object.setXData(chain), Acad::eOk); });
    acutRelRb(chain);
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t place = text.find(from);
    if (place == std::string::npos) {
        ADD_FAILURE() << "not found: " << from;
        return text;
    }
    return text.replace(place, from.size(), to);
}

} // namespace dxf_test
