# What a desktop knows of the window: its entry, its description, results files, icons.
install(TARGETS netrove DESTINATION ${CMAKE_INSTALL_BINDIR})
netrove_install_packed(man/netrove.1 netrove.1 ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES netrove.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES netrove-mime.xml RENAME netrove.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
configure_file(metainfo.xml.in com.example.netrove.metainfo.xml @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/com.example.netrove.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

find_program(RSVG_CONVERT rsvg-convert)
if(NOT RSVG_CONVERT)
    message(STATUS "No rsvg-convert: only the scalable icons will be installed")
endif()

# netrove_icon(NAME KIND SVG): an icon of the theme in every size, from one picture.
function(netrove_icon name kind svg)
    set(theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
    install(FILES ${svg} RENAME ${name}.svg DESTINATION ${theme}/scalable/${kind})
    if(NOT RSVG_CONVERT)
        return()
    endif()
    foreach(size 16 22 24 32 48 64 128 256 512)
        set(png ${CMAKE_CURRENT_BINARY_DIR}/icons/${size}/${name}.png)
        add_custom_command(OUTPUT ${png}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/icons/${size}
            COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${png} ${svg}
            DEPENDS ${svg} VERBATIM)
        list(APPEND pictures ${png})
        install(FILES ${png} DESTINATION ${theme}/${size}x${size}/${kind})
    endforeach()
    add_custom_target(icons-${name} ALL DEPENDS ${pictures})
endfunction()
netrove_icon(netrove apps ${CMAKE_SOURCE_DIR}/resources/icons/netrove-64.svg)
netrove_icon(application-x-netrove-results mimetypes
    ${CMAKE_CURRENT_SOURCE_DIR}/icons/application-x-netrove-results.svg)
