# SPDX-License-Identifier: GPL-3.0-or-later
# The manual page lists the options that `troupe --help` lists, no more and no fewer.
# Run as: cmake -DPROGRAM=troupe -DPAGE=troupe.1.in -P ManualPageOptions.cmake

execute_process(COMMAND ${PROGRAM} --help OUTPUT_VARIABLE help RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} --help failed: ${status}")
endif()

# The names of one option entry, as "-h;--help".
function(option_names text out)
    string(REGEX MATCHALL "(^|[ ,])--?[A-Za-z][A-Za-z0-9-]*" names "${text}")
    list(TRANSFORM names REPLACE "^[ ,]" "")
    set(${out} ${names} PARENT_SCOPE)
endfunction()

# In the help, an entry is a line that starts with two blanks and a dash; its names end
# where two blanks begin its description.
set(helped "")
string(REPLACE "\n" ";" help_lines "${help}")
foreach(line IN LISTS help_lines)
    if(line MATCHES "^  (-[^ ]+( [^ ][^ ]*)*)")
        option_names("${CMAKE_MATCH_1}" names)
        list(APPEND helped ${names})
    endif()
endforeach()

# In the page, an entry is the tag line behind a .TP of the OPTIONS section.
set(paged "")
set(section "")
set(tag FALSE)
file(STRINGS ${PAGE} page_lines)
foreach(line IN LISTS page_lines)
    if(line MATCHES "^\\.SH +\"?([A-Z ]+)")
        set(section ${CMAKE_MATCH_1})
    elseif(section STREQUAL "OPTIONS" AND tag)
        string(REGEX REPLACE "\\\\f[BIRP]|\"" "" text "${line}")
        string(REGEX REPLACE "^\\.[A-Z]+ " "" text "${text}")
        string(REPLACE "\\-" "-" text "${text}")
        option_names("${text}" names)
        list(APPEND paged ${names})
    endif()
    set(tag FALSE)
    if(section STREQUAL "OPTIONS" AND line MATCHES "^\\.TP")
        set(tag TRUE)
    endif()
endforeach()

list(SORT helped)
list(SORT paged)
if(NOT helped STREQUAL paged OR NOT helped)
    message(FATAL_ERROR "troupe --help lists [${helped}], the manual page lists [${paged}]: "
                        "describe each option in packaging/troupe.1.in")
endif()
