# quillary_add_folders(Folder ...)
#
# Adds the subfolders that exist, in the order given: lower ones first.
macro(quillary_add_folders)
    foreach(folder IN ITEMS ${ARGV})
        if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/CMakeLists.txt")
            add_subdirectory("${folder}")
        endif()
    endforeach()
endmacro()

# A misspelt keyword would otherwise be dropped without a word.
function(quillary_refuse_unknown where arguments)
    if(arguments)
        message(FATAL_ERROR "${where}: unexpected ${arguments}")
    endif()
endfunction()

# quillary_add_unit(Name HEADERS ... SOURCES ... USES ... [LIBRARIES ...])
#
# One folder, one static library `Quillary<Name>`. USES names the only other folders it may include, LIBRARIES the
# third-party targets that its public headers need; PRIVATE_LIBRARIES those of its sources alone. The headers form a
# header set, so that the target `all_verify_interface_header_sets` proves that each of them compiles alone.
function(quillary_add_unit name)
    cmake_parse_arguments(PARSE_ARGV 1 unit "" "" "HEADERS;SOURCES;USES;LIBRARIES;PRIVATE_LIBRARIES")
    quillary_refuse_unknown("quillary_add_unit(${name})" "${unit_UNPARSED_ARGUMENTS}")
    set(target "Quillary${name}")
    add_library(${target} STATIC ${unit_SOURCES})
    target_sources(
        ${target} PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${unit_HEADERS}
    )
    list(TRANSFORM unit_USES PREPEND "Quillary")
    target_link_libraries(${target} PUBLIC QuillaryCompiler ${unit_USES} ${unit_LIBRARIES})
    target_link_libraries(${target} PRIVATE ${unit_PRIVATE_LIBRARIES})
    set_target_properties(${target} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
    quillary_use_precompiled(${target})
endfunction()

# quillary_add_tests(Name SOURCES ... USES ...)
#
# One test program `<Name>Tests` a folder; each of its cases is a test of its own for ctest. The test presets fix the time
# zone and the locale of the process to something unusual on purpose: no test may depend on them.
function(quillary_add_tests name)
    cmake_parse_arguments(PARSE_ARGV 1 unit "" "" "SOURCES;USES;LIBRARIES")
    quillary_refuse_unknown("quillary_add_tests(${name})" "${unit_UNPARSED_ARGUMENTS}")
    set(target "${name}Tests")
    add_executable(${target} ${unit_SOURCES})
    list(TRANSFORM unit_USES PREPEND "Quillary")
    target_link_libraries(${target} PRIVATE QuillaryCompiler QuillaryTestSupport ${unit_USES} ${unit_LIBRARIES} GTest::gmock_main)
    quillary_use_precompiled(${target})
    include(GoogleTest)
    gtest_discover_tests(
        ${target}
        DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT 300
    )
endfunction()

# quillary_add_window_unit(Name HEADERS ... SOURCES ... USES ... [LIBRARIES ...])
#
# A unit of the windows: with Qt's own compiler of signals, and without Qt's keywords, which are names of ours elsewhere.
function(quillary_add_window_unit name)
    quillary_add_unit(${name} ${ARGN} LIBRARIES Qt6::Widgets)
    set_target_properties(Quillary${name} PROPERTIES AUTOMOC ON)
    target_compile_definitions(Quillary${name} PUBLIC QT_NO_KEYWORDS)
endfunction()
