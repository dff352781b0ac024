# Completes each package before it is packed, as Debian wants it: the changelog and the licence of the package, and compressed pages.
# CPack runs it with the staged trees in CPACK_TEMPORARY_DIRECTORY, one for each component.

set(own_package_qor qor-generator)
set(own_package_qorgen qorgen)
set(own_package_data qor-generator-data)

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    set(package ${own_package_${component}})
    set(share ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr/share)
    set(documents ${share}/doc/${package})
    file(MAKE_DIRECTORY ${documents})
    file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/copyright ${documents}/copyright)
    file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/changelog ${documents}/changelog.Debian)
    file(CHMOD ${documents}/copyright ${documents}/changelog.Debian PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    if(EXISTS ${CMAKE_CURRENT_LIST_DIR}/${package}.lintian-overrides)
        file(MAKE_DIRECTORY ${share}/lintian/overrides)
        file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/${package}.lintian-overrides ${share}/lintian/overrides/${package})
        file(CHMOD ${share}/lintian/overrides/${package} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    endif()
    file(GLOB pages ${share}/man/man*/*.?)
    execute_process(COMMAND gzip -9nf ${documents}/changelog.Debian ${pages} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
