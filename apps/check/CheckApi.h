#pragma once

/// Marks what the library of the check offers; all else in it is hidden.
#define PIPENET_CHECK_API __attribute__((visibility("default")))
