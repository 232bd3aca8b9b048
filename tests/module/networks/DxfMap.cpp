#include "module/networks/DxfMap.h"

#include <cstdio>

namespace module_tests {

namespace {

const char* const kHead = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1021\n0\nENDSEC\n"
                          "0\nSECTION\n2\nBLOCKS\n";

/// A definition of a unit square about or from its base point.
std::string squareBlock(const std::string& name, const std::string& low, const std::string& high) {
    const std::string place = "8\n0\n100\nAcDbBlockBegin\n2\n" + name +
                              "\n70\n0\n10\n0.0\n20\n0.0\n30\n0.0\n3\n" + name + "\n";
    const std::string diagonal = "0\nLINE\n8\n0\n100\nAcDbLine\n10\n" + low + "\n20\n" + low +
                                 "\n30\n0.0\n11\n" + high + "\n21\n" + high + "\n31\n0.0\n";
    return "0\nBLOCK\n" + place + diagonal + "0\nENDBLK\n8\n0\n";
}

} // namespace

void DxfMap::group(int code, const std::string& value) {
    entities_ += std::to_string(code) + "\n" + value + "\n";
}

void DxfMap::number(int code, double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", value);
    group(code, text);
}

void DxfMap::point(int code, Place at) {
    number(code, at.x);
    number(code + 10, at.y);
    number(code + 20, 0.0);
}

void DxfMap::xdata(const std::string& key, const std::string& value) {
    if (!value.empty()) {
        group(1001, key);
        group(1000, value);
    }
}

void DxfMap::begin(const std::string& name, const char* kind, const char* subclass) {
    char handle[20];
    std::snprintf(handle, sizeof handle, "%X", static_cast<unsigned>(nextHandle_++));
    handles_[name] = handle;
    names_[handle] = name;
    group(0, kind);
    group(5, handle);
    group(100, "AcDbEntity");
    group(8, "0");
    group(100, subclass);
}

void DxfMap::well(const std::string& name, Place at, const MapWell& texts) {
    begin(name, "INSERT", "AcDbBlockReference");
    group(2, texts.square ? "VLT_WELL_04" : "VLT_WELL_01");
    point(10, at);
    xdata("管井系统", texts.system);
    xdata("管井编号", name);
    xdata("井的直径", texts.diameter);
}

void DxfMap::tank(const std::string& name, Place min, Place max, const std::string& length) {
    begin(name, "INSERT", "AcDbBlockReference");
    group(2, "TANK");
    point(10, min);
    number(41, max.x - min.x);
    number(42, max.y - min.y);
    xdata("池体", "1");
    xdata("池体系统", "污水");
    xdata("长度", length);
}

void DxfMap::pipe(const std::string& name, Place from, Place to, const MapPipe& texts) {
    if (texts.bulge == 0.0) {
        begin(name, "LINE", "AcDbLine");
        point(10, from);
        point(11, to);
    } else {
        begin(name, "LWPOLYLINE", "AcDbPolyline");
        group(90, "2");
        group(70, "0");
        number(10, from.x);
        number(20, from.y);
        number(42, texts.bulge);
        number(10, to.x);
        number(20, to.y);
    }
    xdata("管道系统", texts.system);
    xdata("管径", texts.diameter);
    xdata("水流方向", texts.flow);
    xdata("起点标高", texts.startElevation);
    xdata("终点标高", texts.endElevation);
}

std::string DxfMap::text() const {
    return kHead + squareBlock("VLT_WELL_01", "-0.5", "0.5") +
           squareBlock("VLT_WELL_04", "-0.5", "0.5") + squareBlock("TANK", "0.0", "1.0") +
           "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" + entities_ + "0\nENDSEC\n0\nEOF\n";
}

std::string DxfMap::handle(const std::string& name) const {
    return handles_.at(name);
}

std::string DxfMap::name(const std::string& handle) const {
    const auto found = names_.find(handle);
    return found == names_.end() ? "(" + handle + ")" : found->second;
}

} // namespace module_tests
