# SPDX-License-Identifier: GPL-3.0-or-later
# Build rules shared by every folder of the project.

# Warnings are errors in our own code.
function(troupe_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
endfunction()

# Each library sees only the folders it may include from. Its include root, a folder of the
# build tree, holds links to those folders and to nothing else, so an include from any other
# folder fails to compile. "foundation/core" is the foundation without its controls.
function(troupe_include_root target)
    set(root ${PROJECT_BINARY_DIR}/include-roots/${target})
    file(REMOVE_RECURSE ${root})
    file(MAKE_DIRECTORY ${root})
    foreach(folder IN LISTS ARGN)
        if(folder STREQUAL "foundation/core")
            file(MAKE_DIRECTORY ${root}/foundation)
            file(GLOB headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/foundation/*.h)
            foreach(header IN LISTS headers)
                get_filename_component(name ${header} NAME)
                file(CREATE_LINK ${header} ${root}/foundation/${name} COPY_ON_ERROR SYMBOLIC)
            endforeach()
        else()
            file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${folder} ${root}/${folder}
                 COPY_ON_ERROR SYMBOLIC)
        endif()
    endforeach()
    target_include_directories(${target} PRIVATE ${root})
endfunction()

# A library of one layer: it links `qt` and the libraries given, and refuses at the configure
# step any library that matches `refused`. It sees the folders named by SEES, else the
# foundation (`foundation`, its core alone for `foundation/core`) and the top folder of the
# project that holds the current CMakeLists.txt.
function(troupe_layer_library target qt refused foundation)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS;SEES" ${ARGN})
    foreach(lib IN LISTS ARG_LIBS)
        if(lib MATCHES "${refused}")
            message(FATAL_ERROR "${target} may not link ${lib}: it is of another layer")
        endif()
    endforeach()
    add_library(${target} STATIC ${ARG_SOURCES})
    if(NOT ARG_SEES)
        file(RELATIVE_PATH own ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
        string(REGEX REPLACE "/.*" "" own "${own}")
        set(ARG_SEES ${foundation})
        if(NOT own STREQUAL "foundation")
            list(APPEND ARG_SEES ${own})
        endif()
    endif()
    troupe_include_root(${target} ${ARG_SEES})
    target_link_libraries(${target} PUBLIC ${qt} ${ARG_LIBS})
    troupe_warnings(${target})
endfunction()

# A core library: documents, records, file formats, path services, the scanner, the check.
# It knows QtCore and other core libraries, never Gui or a widget: no widget header, ours or
# Qt's, is on its include path.
function(troupe_core_library target)
    troupe_layer_library(${target} Qt6::Core "Qt6?::(Gui|Widgets|Test)|_(gui|ui)$"
                         foundation/core ${ARGN})
endfunction()

# A painting library: pictures drawn with QPainter, for windows and files alike. It knows Qt
# Gui and core libraries, never a widget, so a picture can be drawn with no window system.
function(troupe_gui_library target)
    troupe_layer_library(${target} Qt6::Gui "Widgets|Qt6?::Test|_ui$" foundation/core ${ARGN})
endfunction()

# A window library: windows and controls over Qt Widgets, standing on the others. It sees the
# foundation with its controls: no window folder sees another's.
function(troupe_ui_library target)
    troupe_layer_library(${target} Qt6::Widgets "^$" foundation ${ARGN})
endfunction()

# A Qt Test program run by CTest on the offscreen platform. Fixtures are found through
# compile definitions, never through the working directory.
function(troupe_add_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    # A test may reach into any folder: it checks the layers, it is none of them.
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE Qt6::Test ${ARG_LIBS})
    target_compile_definitions(${name} PRIVATE
        TROUPE_FIXTURES_DIR="${PROJECT_SOURCE_DIR}/tests/fixtures")
    troupe_warnings(${name})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen"
        TIMEOUT 600)
endfunction()
