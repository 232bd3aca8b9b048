# Compiler, sanitizer and floating-point settings, chosen once for every target of the project.
add_library(tkvlt_options INTERFACE)
target_compile_features(tkvlt_options INTERFACE cxx_std_20)

# Contraction would let one compiler fuse a multiplication and an addition that another keeps apart;
# thresholds compared exactly would then fall differently.
target_compile_options(tkvlt_options INTERFACE -Wall -Wextra -Wpedantic -Werror -ffp-contract=off)

# No library of the project is meant to have single functions replaced from outside, so calls within
# one library need not go through its table of symbols and may be inlined.
target_compile_options(tkvlt_options INTERFACE -fno-semantic-interposition)
target_link_options(tkvlt_options INTERFACE LINKER:-Bsymbolic-functions)

# Calls from one library to another are bound when a program starts, not each when it is first made:
# a search of a small network would spend a tenth of its time on looking names up. What is bound for
# good is then made read-only, and needs no stub in between.
target_compile_options(tkvlt_options INTERFACE -fno-plt)
target_link_options(tkvlt_options INTERFACE LINKER:-z,relro LINKER:-z,now)

# GCC 12 sees an overlap in every concatenation of a literal and a temporary string once it inlines it.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(tkvlt_options INTERFACE -Wno-restrict)
endif()

if(TKVLT_SANITIZE)
  target_compile_options(tkvlt_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tkvlt_options INTERFACE -fsanitize=address,undefined)
endif()

# Every library is built to tell the fuzzer where it has been.
if(TKVLT_FUZZ)
  target_compile_options(tkvlt_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Settings that every target of the project shares beside the interface target above.
function(tkvlt_configure_target target)
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:tkvlt_options>)
endfunction()
