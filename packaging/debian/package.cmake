# What is installed on Debian, and where; `packaging/debian/build` makes the package of it with CPack.
if(WIN32 OR NOT KARVEL_UI)
    return()
endif()

# The times inside the package are those of the sources: the same sources make the same bytes.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
    string(TIMESTAMP KARVEL_RELEASE_DATE "%Y-%m-%d" UTC)
    # The names of days and months must be English in the change log.
    set(ENV{LC_ALL} C)
    string(TIMESTAMP KARVEL_CHANGELOG_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
else()
    set(KARVEL_RELEASE_DATE 2026-01-01)
    set(KARVEL_CHANGELOG_DATE "Thu, 01 Jan 2026 00:00:00 +0000")
endif()

set(DEBIAN ${CMAKE_CURRENT_LIST_DIR})
set(MADE ${CMAKE_BINARY_DIR}/debian)

# Fills in packaging/debian/NAME.in and compresses it, without its time, to debian/NAME.gz.
function(karvel_compressed NAME TARGET)
    configure_file(${DEBIAN}/${NAME}.in ${MADE}/${NAME} @ONLY)
    execute_process(COMMAND gzip -9nc ${MADE}/${NAME} OUTPUT_FILE ${MADE}/${TARGET} COMMAND_ERROR_IS_FATAL ANY)
endfunction()
karvel_compressed(changelog changelog.gz)
karvel_compressed(karvel.1 karvel.1.gz)
karvel_compressed(karvel-cli.1 karvel-cli.1.gz)
configure_file(${DEBIAN}/karvel.metainfo.xml.in ${MADE}/karvel.metainfo.xml @ONLY)

# What CPack copies must not depend on the rights that the builder's own files have.
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(PLAIN OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

# /usr/bin/karvel provides the user's drive and then starts the program.
install(TARGETS karvel RUNTIME DESTINATION lib/karvel)
install(TARGETS karvel-cli RUNTIME DESTINATION bin)
install(PROGRAMS ${DEBIAN}/karvel DESTINATION bin)
install(DIRECTORY data/tree DESTINATION share/karvel FILE_PERMISSIONS ${PLAIN})
install(FILES data/tree/dizio.txt DESTINATION share/karvel/tree/edizione PERMISSIONS ${PLAIN})
install(FILES data/CREDITS.md DESTINATION share/karvel PERMISSIONS ${PLAIN})
install(FILES docs/guida.md DESTINATION share/doc/karvel PERMISSIONS ${PLAIN})
install(DIRECTORY docs/pictures DESTINATION share/doc/karvel FILE_PERMISSIONS ${PLAIN})
install(FILES ${DEBIAN}/copyright ${MADE}/changelog.gz DESTINATION share/doc/karvel PERMISSIONS ${PLAIN})
install(FILES ${MADE}/karvel.1.gz ${MADE}/karvel-cli.1.gz DESTINATION share/man/man1 PERMISSIONS ${PLAIN})
install(FILES ${DEBIAN}/karvel.desktop DESTINATION share/applications PERMISSIONS ${PLAIN})
install(FILES ${MADE}/karvel.metainfo.xml DESTINATION share/metainfo PERMISSIONS ${PLAIN})
foreach(SIZE 16 32 48 64 128 256)
    install(FILES packaging/icons/karvel-${SIZE}.png RENAME karvel.png PERMISSIONS ${PLAIN}
        DESTINATION share/icons/hicolor/${SIZE}x${SIZE}/apps)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_NAME karvel)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Progetto Karvel <karvel@karvel.example>")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_PRE_BUILD_SCRIPTS ${DEBIAN}/set-times.cmake)
set(CPACK_DEBIAN_FILE_NAME karvel_${PROJECT_VERSION}_amd64.deb)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE amd64)
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, qt6-wayland")
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "dizionario geroglifico-italiano")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Karvel traduce in italiano le parole scritte in geroglifico egizio. La frase
si compone premendo i segni su una tavolozza, e il dizionario, che l'utente può
ampliare, ne dice il significato; dall'italiano si torna ai segni.
.
Il pacchetto contiene anche karvel-cli, lo stesso dizionario nel terminale.")
include(CPack)
