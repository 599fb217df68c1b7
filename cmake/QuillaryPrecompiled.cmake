# Precompiled headers for the core and its tests: half of a fresh build was reading the same headers again.
#
# One target per flavour compiles the header; the others reuse it, so its flags must be theirs: no Qt (its targets are
# position-independent), no macro that a header in it reads.
option(QUILLARY_PRECOMPILE "Read common headers once" ON)
# ccache takes a precompiled header of g++ only with the flag by which the compiler names it in its own output. Read from
# there, the standard library's strings are no longer spared g++ 12's false alarms (its bug 105651); clang and the
# sanitizers watch bounds.
if(QUILLARY_PRECOMPILE AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    target_compile_options(
        QuillaryCompiler INTERFACE -fpch-preprocess -Wno-array-bounds -Wno-restrict -Wno-stringop-overflow
    )
endif()

# clang would compare the headers' times, which another machine with the same cache has others of; and it reports the
# standard library's own use of what it deprecates (stable sorting).
if(QUILLARY_PRECOMPILE AND CMAKE_CXX_COMPILER_ID MATCHES Clang)
    target_compile_options(QuillaryCompiler INTERFACE "SHELL:-Xclang -fno-pch-timestamp" -Wno-deprecated-declarations)
endif()

# quillary_precompile_here(Flavour Header [Libraries ...])
#
# From here on, units and tests of this folder and those below use the header.
macro(quillary_precompile_here flavour header)
    if(QUILLARY_PRECOMPILE)
        set(QUILLARY_PRECOMPILED "QuillaryPrecompiled${flavour}")
        file(WRITE "${PROJECT_BINARY_DIR}/${QUILLARY_PRECOMPILED}.cpp" "")
        add_library(${QUILLARY_PRECOMPILED} OBJECT "${PROJECT_BINARY_DIR}/${QUILLARY_PRECOMPILED}.cpp")
        target_link_libraries(${QUILLARY_PRECOMPILED} PRIVATE QuillaryCompiler ${ARGN})
        target_precompile_headers(${QUILLARY_PRECOMPILED} PRIVATE "${header}")
    endif()
endmacro()

function(quillary_use_precompiled target)
    if(QUILLARY_PRECOMPILED)
        target_precompile_headers(${target} REUSE_FROM ${QUILLARY_PRECOMPILED})
    endif()
endfunction()
