# What `cpack -G DEB` makes of an installation below /usr: the packages qor-generator, qorgen and qor-generator-data.

set(QOR_MAINTAINER "Tessaline <packages@tessaline.example>" CACHE STRING "Who answers for the packages, as Debian writes it")

set(CPACK_PACKAGE_NAME qor-generator)
set(CPACK_PACKAGE_VENDOR Tessaline)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL qorgen data)
if(TARGET qor)
    list(PREPEND CPACK_COMPONENTS_ALL qor)
endif()
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/packaging/debian/finish.cmake)

set(release 1)
set(same_data "qor-generator-data (= ${PROJECT_VERSION}-${release})")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${release})
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${QOR_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${PROJECT_HOMEPAGE_URL})
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

set(CPACK_DEBIAN_QOR_PACKAGE_NAME qor-generator)
set(CPACK_DEBIAN_QOR_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_QOR_PACKAGE_SHLIBDEPS ON)
# Qt loads its platforms at run time, and without its translations its own dialogs stay English.
set(CPACK_DEBIAN_QOR_PACKAGE_DEPENDS "${same_data}, qt6-qpa-plugins, qt6-translations-l10n")
set(CPACK_DEBIAN_QOR_PACKAGE_RECOMMENDS "qorgen")
set(CPACK_DEBIAN_QOR_PACKAGE_SUGGESTS "qt6-wayland")
set(CPACK_DEBIAN_QOR_DESCRIPTION "ABAP load programs from a description - desktop program
Instead of programming the load of a file into SAP R/3 by hand, you describe
it: on one side the fields of the file, on the other the screens and fields of
the transactions, or the parameters of the BAPIs. From that comes one complete
ABAP report.

It needs no SAP system: a practice system inside the program runs the report
record by record, and shows what each transaction would receive.")

set(CPACK_DEBIAN_QORGEN_PACKAGE_NAME qorgen)
set(CPACK_DEBIAN_QORGEN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_QORGEN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_QORGEN_PACKAGE_DEPENDS "${same_data}")
set(CPACK_DEBIAN_QORGEN_PACKAGE_SUGGESTS "qor-generator")
set(CPACK_DEBIAN_QORGEN_DESCRIPTION "ABAP load programs from a description - command line
Writes ABAP reports that load files into SAP R/3 from documents that describe
the load, checks documents and input files, converts tables into input files,
and runs the reports on a practice system.

This is Qor Generator without a screen, for scripts and repositories.")

set(CPACK_DEBIAN_DATA_PACKAGE_NAME qor-generator-data)
set(CPACK_DEBIAN_DATA_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_DATA_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DATA_DESCRIPTION "ABAP load programs from a description - shared data
Qor Generator writes ABAP reports that load files into SAP R/3 from a
description of the load.

This package holds what its desktop program and its command line share: texts,
help, the dictionary, a catalogue of BAPIs, examples and documents.")

include(CPack)
