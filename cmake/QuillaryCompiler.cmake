# What every target of ours is compiled with, as an interface target instead of global flags.
add_library(QuillaryCompiler INTERFACE)
target_compile_features(QuillaryCompiler INTERFACE cxx_std_23)
target_include_directories(QuillaryCompiler INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_options(
    QuillaryCompiler
    INTERFACE -Wall
              -Wextra
              -Wpedantic
              -Wshadow
              -Wconversion
              -Wold-style-cast
)
# The standard library's own checks (an index out of range, an empty optional): they cost little and are off only in
# what is installed.
target_compile_definitions(QuillaryCompiler INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

# With full optimisation g++ 12 takes the unused alternative of a variant or optional for read, and the parts of one
# string for overlapping (its bugs 80635 and 105651). The everyday build and clang still watch both.
target_compile_options(
    QuillaryCompiler
    INTERFACE "$<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-maybe-uninitialized;-Wno-restrict>"
)

set(QUILLARY_SANITIZERS "" CACHE STRING "Sanitizers for every target, e.g. address,undefined")
if(QUILLARY_SANITIZERS)
    target_compile_options(
        QuillaryCompiler INTERFACE "-fsanitize=${QUILLARY_SANITIZERS}" -fno-sanitize-recover=all -fno-omit-frame-pointer
    )
    target_link_options(QuillaryCompiler INTERFACE "-fsanitize=${QUILLARY_SANITIZERS}")
endif()

option(QUILLARY_COVERAGE "Measure line coverage" OFF)
if(QUILLARY_COVERAGE)
    target_compile_options(QuillaryCompiler INTERFACE --coverage)
    target_link_options(QuillaryCompiler INTERFACE --coverage)
endif()

find_program(QUILLARY_CCACHE ccache)
if(QUILLARY_CCACHE)
    # A clone in another folder finds what was compiled before, precompiled headers included.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        env "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros
        "${QUILLARY_CCACHE}"
    )
endif()
