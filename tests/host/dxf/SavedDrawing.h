#pragma once

#include "LoadedDrawing.h"

#include "database/AcDbXrecord.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace dxf_test {

/// The bytes a drawing is saved as; a failure fails the test and gives "".
std::string savedBytes(const AcDbDatabase& database);

/// The bytes of a file; "" with the test failed when it cannot be read.
std::string fileBytes(const std::string& path);
void writeFile(const std::string& path, const std::string& bytes);

/// A path of this process's own for a temporary file.
std::string temporaryPath(const std::string& name);

/// Runs a script of this folder with the system's Python; fails the test when it fails.
void runScript(const std::string& script, const std::vector<std::string>& arguments);

/// Saves the drawing and has another library read it and answer `questions`, see check_saved.py.
void askAnother(const AcDbDatabase& database, const std::string& name,
                const std::vector<std::string>& questions);

/// The file that make_rich_case.py writes.
std::string richCase(const std::string& version, const std::string& form,
                     const std::string& codePage);

/// Opens an object for write, hands it to `change`, and closes it.
template<typename Class, typename Change>
void changeObject(AcDbObjectId id, Change change) {
    Class* object = nullptr;
    if (acdbOpenObject(object, id, AcDb::kForWrite) != Acad::eOk) {
        throw std::runtime_error("the object cannot be opened for write");
    }
    change(*object);
    object->close();
}

void eraseObject(AcDbObjectId id);
/// Adds an entity to a definition or space and closes it.
AcDbObjectId addEntity(AcDbObjectId block, AcDbEntity* entity);
/// Adds a record to a table and closes it.
AcDbObjectId addRecord(AcDbObjectId table, AcDbSymbolTableRecord* record);
/// Puts texts under an application, registered if need be; none takes the application's data out.
void setXdata(AcDbObjectId id, const wchar_t* application,
              std::initializer_list<const wchar_t*> texts);

/// `text` with the first `from` replaced by `to`; fails the test when there is none.
std::string replaced(std::string text, const std::string& from, const std::string& to);

} // namespace dxf_test
