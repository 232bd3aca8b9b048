#pragma once

#include "module/networks/DxfMap.h"

#include <map>
#include <string>

namespace module_tests {

/// The text of a DXF drawing of a pressure network: pipes and wells of 给水, meters and valves.
class PressureMap : public DxfMap {
public:
    void main(const std::string& name, Place from, Place to, MapPipe texts = {});
    void well(const std::string& name, Place at, const std::string& diameter = "1");
    void meter(const std::string& name, Place at, const std::string& diameter = "1");
    void valve(const std::string& name, Place at, const std::string& diameter = "1");

    std::string text() const;

private:
    std::map<std::string, std::string> blocks_; ///< block names of meters and valves
};

} // namespace module_tests
