# Gives a Windows program its icon, its manifest and its version information:
#
#   include(packaging/windows/resources.cmake)
#   karvel_windows_resources(karvel "Karvel - Dizionario geroglifico-italiano")
#
# Does nothing elsewhere. The version is the project's.

set(KARVEL_WINDOWS_PACKAGING ${CMAKE_CURRENT_LIST_DIR})

function(karvel_windows_resources target description)
    if(NOT WIN32)
        return()
    endif()
    enable_language(RC)
    set(KARVEL_RC_NAME ${target})
    set(KARVEL_RC_DESCRIPTION ${description})
    # The resource compiler looks for these in the directories that are given to it below, so that no path of
    # the building machine stands in the file.
    set(KARVEL_RC_ICON karvel.ico)
    set(KARVEL_RC_MANIFEST karvel.manifest)
    set(manifest ${CMAKE_CURRENT_BINARY_DIR}/karvel.manifest)
    configure_file(${KARVEL_WINDOWS_PACKAGING}/karvel.manifest.in ${manifest} @ONLY)
    set(file ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
    configure_file(${KARVEL_WINDOWS_PACKAGING}/karvel.rc.in ${file} @ONLY)
    target_sources(${target} PRIVATE ${file})
    set_source_files_properties(${file} PROPERTIES
        COMPILE_OPTIONS
            "-I;${CMAKE_CURRENT_BINARY_DIR};-I;${KARVEL_WINDOWS_PACKAGING}/../icons"
        OBJECT_DEPENDS "${manifest};${KARVEL_WINDOWS_PACKAGING}/../icons/karvel.ico")
endfunction()
