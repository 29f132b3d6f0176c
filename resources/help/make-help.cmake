# Makes the pages of the help (HELP) from what is in SOURCE. A page begins with two lines:
# <!-- What the contents say of it. -->
# <h1>Title</h1>
cmake_minimum_required(VERSION 3.25)

# In the order of the contents.
set(pages
    first-search main-window search-text start-node network-browser computers logons silent
    results downloads results-files options exclusions date-format skins tray
    update donate about netrove-find files troubleshooting messages keys)

file(REMOVE_RECURSE ${HELP})
file(READ ${SOURCE}/frame.html frame)

# Gives what stands in a page, its title and what it is about.
macro(read_page name)
    file(READ ${SOURCE}/pages/${name}.html body)
    if(NOT body MATCHES "^<!-- ([^\n]*) -->\n<h1>([^<\n]*)</h1>\n")
        message(FATAL_ERROR "${name}.html doesn't begin as a page does")
    endif()
    set(about "${CMAKE_MATCH_1}")
    set(title "${CMAKE_MATCH_2}")
endmacro()

function(write_page name title body navigation)
    set(text "${frame}")
    string(REPLACE "@TITLE@" "${title}" text "${text}")
    string(REPLACE "@NAVIGATION@" "${navigation}" text "${text}")
    string(REPLACE "@BODY@" "${body}" text "${text}")
    string(REPLACE "@VERSION@" "${VERSION}" text "${text}")
    file(WRITE ${HELP}/${name}.html "${text}")
endfunction()

set(contents "")
set(before "")
foreach(page ${pages})
    read_page(${page})
    string(APPEND contents "<dt><a href=\"${page}.html\">${title}</a><dd>${about}\n")
    set(link_${page} "<a href=\"${page}.html\">${title}</a>")
    if(before)
        set(next_${before} ${page})
    endif()
    set(before_${page} "${before}")
    set(before ${page})
endforeach()

foreach(page ${pages})
    read_page(${page})
    set(navigation "<a href=\"Netrove.html\">Contents</a>")
    if(before_${page})
        string(APPEND navigation " <span>Back: ${link_${before_${page}}}</span>")
    endif()
    if(next_${page})
        string(APPEND navigation " <span>Next: ${link_${next_${page}}}</span>")
    endif()
    write_page(${page} "${title}" "${body}" "${navigation}")
endforeach()

read_page(Netrove)
string(REPLACE "@CONTENTS@" "${contents}" body "${body}")
write_page(Netrove "Contents" "${body}" "")

file(COPY ${SOURCE}/style.css DESTINATION ${HELP})
file(GLOB pictures ${SOURCE}/pictures/*.png)
file(COPY ${pictures} DESTINATION ${HELP}/pictures)
