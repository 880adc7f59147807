# SPDX-License-Identifier: GPL-3.0-or-later
# The build refuses an include that crosses the layers. Each row plants one include in a
# scratch source and compiles it exactly as a source of that library is compiled (its
# command from compile_commands.json); the include must fail, or, for the rows that the
# layer allows, compile. Run by CTest with -DBUILD=<build folder>.

set(rows
    # a source of the library     | the include planted               | refused or allowed
    "rig/clsRBT_format.cpp|\"foundation/controls/TextBox.h\"|refused" # a core, our widgets
    "rig/clsRBT_format.cpp|<QWidget>|refused"                          # a core, Qt's widgets
    "rig/clsRBT_format.cpp|\"rig/clsRBT.h\"|allowed"
    "foundation/mdlGeneral.cpp|\"stage/clsSSF.h\"|refused"             # the foundation, a window folder
    "foundation/controls/ListBox.cpp|\"rig/frmMainRBT.h\"|refused"
    "stage/frmMainSSF.cpp|\"rig/frmMainRBT.h\"|refused"                # one window folder, another
    "stage/frmMainSSF.cpp|\"show/clsTSL.h\"|refused"
    "stage/frmMainSSF.cpp|\"foundation/controls/ListBox.h\"|allowed"
    "app/Suite.cpp|\"rig/frmMainRBT.h\"|allowed"
    "check/ShowCheck.cpp|\"rig/frmMainRBT.h\"|refused"              # the check's core, a window
    "check/ShowCheck.cpp|\"stage/clsSSF.h\"|allowed"
    "plan/PlanPainter.cpp|<QWidget>|refused"                           # painting, Qt's widgets
    "plan/PlanPainter.cpp|<QPainter>|allowed")

file(READ ${BUILD}/compile_commands.json commands)
string(JSON count LENGTH "${commands}")
set(scratch ${BUILD}/layer-check)
file(MAKE_DIRECTORY ${scratch})
set(failures 0)
foreach(row IN LISTS rows)
    string(REPLACE "|" ";" row "${row}")
    list(GET row 0 source)
    list(GET row 1 include)
    list(GET row 2 expected)

    set(command "")
    math(EXPR last "${count} - 1")
    foreach(i RANGE ${last})
        string(JSON file GET "${commands}" ${i} file)
        if(file MATCHES "/${source}$")
            string(JSON command GET "${commands}" ${i} command)
            string(JSON directory GET "${commands}" ${i} directory)
            break()
        endif()
    endforeach()
    if(command STREQUAL "")
        message(SEND_ERROR "no compile command for ${source}")
        math(EXPR failures "${failures} + 1")
        continue()
    endif()

    # The scratch source stands outside the tree, so only the include roots can find the
    # header; it is checked, not compiled into an object.
    string(MAKE_C_IDENTIFIER "${source}${include}" name)
    file(WRITE ${scratch}/${name}.cpp "#include ${include}\n")
    string(REGEX REPLACE " -o [^ ]+ -c [^ ]+$" " -fsyntax-only ${scratch}/${name}.cpp" command
           "${command}")
    separate_arguments(arguments UNIX_COMMAND "${command}")
    execute_process(COMMAND ${arguments} WORKING_DIRECTORY ${directory}
                    RESULT_VARIABLE result ERROR_VARIABLE errors OUTPUT_QUIET)
    if(result EQUAL 0)
        set(got allowed)
    elseif(errors MATCHES "No such file or directory")
        set(got refused)
    else()
        set(got "broken: ${errors}")
    endif()
    if(NOT got STREQUAL expected)
        message(SEND_ERROR "${source} including ${include}: ${got}, not ${expected}")
        math(EXPR failures "${failures} + 1")
    endif()
endforeach()
if(failures GREATER 0)
    message(FATAL_ERROR "${failures} of the layer rules do not hold")
endif()
