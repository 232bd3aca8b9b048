#pragma once

/// Marks a name of the module's boundary. Everything else stays hidden in the shared library.
#define TKVLT_API __attribute__((visibility("default")))
