# Build rules shared by every folder of the project.

# Warnings are errors in our own code.
function(troupe_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
endfunction()

# A core library: documents, records, file formats, path services, the scanner.
# It may know QtCore and other core targets, never a widget: the check below fails
# the configure step when a core target is given anything that pulls in Gui or Widgets.
function(troupe_core_library target)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    foreach(lib IN LISTS ARG_LIBS)
        if(lib MATCHES "Qt6?::(Gui|Widgets|Test)" OR lib MATCHES "_ui$")
            message(FATAL_ERROR "core target ${target} may not link ${lib}")
        endif()
    endforeach()
    add_library(${target} STATIC ${ARG_SOURCES})
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${target} PUBLIC Qt6::Core ${ARG_LIBS})
    troupe_warnings(${target})
endfunction()

# A window library: windows and controls over Qt Widgets, standing on core targets.
function(troupe_ui_library target)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_library(${target} STATIC ${ARG_SOURCES})
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${target} PUBLIC Qt6::Widgets ${ARG_LIBS})
    troupe_warnings(${target})
endfunction()

# A Qt Test program run by CTest on the offscreen platform. Fixtures are found through
# compile definitions, never through the working directory.
function(troupe_add_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE Qt6::Test ${ARG_LIBS})
    target_compile_definitions(${name} PRIVATE
        TROUPE_FIXTURES_DIR="${PROJECT_SOURCE_DIR}/tests/fixtures")
    troupe_warnings(${name})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen"
        TIMEOUT 600)
endfunction()
