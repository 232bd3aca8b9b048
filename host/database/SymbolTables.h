#pragma once

#include "database/AcDbBlockTableRecord.h"
#include "database/AcDbSymbolTable.h"
#include "database/LinetypeDash.h"
#include "database/OpenObject.h"

#include <vector>

namespace host_db {

/// What the tables of one kind of record add to AcDbSymbolTable: typed look-up and adding.
template<typename Table, typename Record>
class SymbolTableOf : public AcDbSymbolTable {
public:
    using AcDbSymbolTable::getAt;

    Acad::ErrorStatus getAt(const ACHAR* name, Record*& record, AcDb::OpenMode mode,
                            bool openErased = false) const {
        AcDbObjectId id;
        record = nullptr;
        const Acad::ErrorStatus status = getAt(name, id, openErased);
        return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;
    }

    using AcDbSymbolTable::add;

    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record) override {
        return Record::cast(record) == nullptr ? Acad::eNotThatKindOfClass
                                               : AcDbSymbolTable::add(id, record);
    }

protected:
    std::unique_ptr<AcDbObject> savedCopy() const override { return std::make_unique<Table>(); }
};

} // namespace host_db

/// A layer: switches and default colour and linetype of the entities on it.
class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);

public:
    AcDbLayerTableRecord() = default;
    AcRxObject* clone() const override;

    bool isOff() const { return off_; }
    bool isFrozen() const { return (flags() & 1) != 0; }
    bool isLocked() const { return (flags() & 4) != 0; }
    Adesk::UInt16 colorIndex() const { return color_; }
    AcDbObjectId linetypeObjectId() const { return linetype_; }
    Acad::ErrorStatus setIsOff(bool off);
    Acad::ErrorStatus setIsFrozen(bool frozen);
    Acad::ErrorStatus setIsLocked(bool locked);
    /// 1 to 255, else eInvalidInput.
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 color);
    Acad::ErrorStatus setLinetypeObjectId(AcDbObjectId id);

protected:
    AcDbLayerTableRecord(const AcDbLayerTableRecord&) = default;

private:
    AcDbObjectId linetype_;
    Adesk::UInt16 color_ = 7;
    bool off_ = false;
};

/// A linetype: its description and the dashes that repeat along a curve; none for a plain line.
class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord);

public:
    AcDbLinetypeTableRecord() = default;
    AcRxObject* clone() const override;

    const ACHAR* comments() const { return comments_; }
    Acad::ErrorStatus setComments(const ACHAR* text);
    int numDashes() const { return static_cast<int>(dashes_.size()); }
    /// 0 for an index that there is not.
    double dashLengthAt(int index) const;
    /// Lengths of all dashes, dots and gaps.
    double patternLength() const;

    const std::vector<host_db::LinetypeDash>& dashes() const { return dashes_; }
    Acad::ErrorStatus setDashes(std::vector<host_db::LinetypeDash> dashes);

protected:
    AcDbLinetypeTableRecord(const AcDbLinetypeTableRecord&) = default;

private:
    CString comments_;
    std::vector<host_db::LinetypeDash> dashes_;
};

/// A text style: fonts, width factor, fixed height (0 for none), slant. Or, without a name, a file
/// of shapes that linetypes draw with.
class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);

public:
    AcDbTextStyleTableRecord() = default;
    AcRxObject* clone() const override;

    double xScale() const { return xScale_; }
    double textSize() const { return textSize_; }
    double obliquingAngle() const { return oblique_; }
    const CString& fontFile() const { return fontFile_; }
    const CString& bigFontFile() const { return bigFontFile_; }
    Acad::ErrorStatus setXScale(double scale);
    Acad::ErrorStatus setTextSize(double size);
    Acad::ErrorStatus setObliquingAngle(double angle);
    Acad::ErrorStatus setFileName(const ACHAR* file);
    Acad::ErrorStatus setBigFontFileName(const ACHAR* file);
    /// The record stands for a shape file, its font file, and may be without a name.
    bool isShapeFile() const { return (flags() & 1) != 0; }
    Acad::ErrorStatus setIsShapeFile(bool shapeFile);

protected:
    bool mayBeNameless() const override { return isShapeFile(); }
    AcDbTextStyleTableRecord(const AcDbTextStyleTableRecord&) = default;

private:
    double xScale_ = 1.0;
    double textSize_ = 0.0;
    double oblique_ = 0.0;
    CString fontFile_;
    CString bigFontFile_;
};

/// A dimension style; its variables stay in the file's bytes.
class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbDimStyleTableRecord);

public:
    AcDbDimStyleTableRecord() = default;
    AcRxObject* clone() const override;

protected:
    AcDbDimStyleTableRecord(const AcDbDimStyleTableRecord&) = default;
};

/// A registered application. Its name cannot be changed, since extended data refer to it.
class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
    ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord);

public:
    AcDbRegAppTableRecord() = default;
    AcRxObject* clone() const override;
    /// eNotApplicable once the record is in a database.
    Acad::ErrorStatus setName(const ACHAR* name) override;

protected:
    AcDbRegAppTableRecord(const AcDbRegAppTableRecord&) = default;
    void onAdded(AcDbDatabase& database) override;
};

class AcDbBlockTable : public host_db::SymbolTableOf<AcDbBlockTable, AcDbBlockTableRecord> {
    ACRX_DECLARE_MEMBERS(AcDbBlockTable);
};

class AcDbLayerTable : public host_db::SymbolTableOf<AcDbLayerTable, AcDbLayerTableRecord> {
    ACRX_DECLARE_MEMBERS(AcDbLayerTable);
};

class AcDbLinetypeTable
    : public host_db::SymbolTableOf<AcDbLinetypeTable, AcDbLinetypeTableRecord> {
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTable);
};

class AcDbTextStyleTable
    : public host_db::SymbolTableOf<AcDbTextStyleTable, AcDbTextStyleTableRecord> {
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTable);
};

class AcDbDimStyleTable
    : public host_db::SymbolTableOf<AcDbDimStyleTable, AcDbDimStyleTableRecord> {
    ACRX_DECLARE_MEMBERS(AcDbDimStyleTable);
};

class AcDbRegAppTable : public host_db::SymbolTableOf<AcDbRegAppTable, AcDbRegAppTableRecord> {
    ACRX_DECLARE_MEMBERS(AcDbRegAppTable);
};
