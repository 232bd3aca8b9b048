#pragma once

#include <exception>
#include <string>
#include <utility>

namespace host_dxf {

/// Thrown inside this room when a drawing cannot be put into its file's form; it never leaves
/// saveDrawing and drawingBytes.
class SaveFailure : public std::exception {
public:
    explicit SaveFailure(std::string cause) : cause_(std::move(cause)) {}

    const char* what() const noexcept override { return cause_.c_str(); }

private:
    std::string cause_;
};

} // namespace host_dxf
