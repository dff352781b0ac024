# What `cmake --install` brings, in three components: the desktop program (qor), the command line (qorgen), and what both read (data).

set(data_directory ${CMAKE_INSTALL_DATADIR}/qor-generator)
set(doc_directory ${CMAKE_INSTALL_DATADIR}/doc/qor-generator)

# ---- The command line ----

install(TARGETS qorgen COMPONENT qorgen)
install(FILES ${CMAKE_SOURCE_DIR}/docs/qorgen.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT qorgen)
set(completions ${CMAKE_SOURCE_DIR}/packaging/completions)
install(FILES ${completions}/qorgen.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME qorgen
    COMPONENT qorgen)
install(FILES ${completions}/_qorgen DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT qorgen)
install(FILES ${completions}/qorgen.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT qorgen)

# ---- The desktop program ----

if(TARGET qor)
    # Whoever publishes docs/images says where; the description of the program shows the pictures then.
    set(QOR_SCREENSHOTS "" CACHE STRING "Address below which the pictures of docs/images are published, without a slash at its end")
    set(screenshots "")
    if(QOR_SCREENSHOTS)
        file(READ ${CMAKE_SOURCE_DIR}/packaging/screenshots.xml screenshots)
        string(REPLACE "@address@" "${QOR_SCREENSHOTS}" screenshots "${screenshots}")
    endif()
    set(metainfo example.tessaline.QorGenerator.metainfo.xml)
    configure_file(${CMAKE_SOURCE_DIR}/packaging/metainfo.xml.in ${CMAKE_BINARY_DIR}/packaging/${metainfo} @ONLY)

    set(desktop ${CMAKE_SOURCE_DIR}/data/desktop)
    set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
    install(TARGETS qor COMPONENT qor)
    install(FILES ${CMAKE_SOURCE_DIR}/docs/qor.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT qor)
    install(FILES ${desktop}/qor-generator.desktop ${desktop}/qor-data-set-editor.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT qor)
    install(FILES ${CMAKE_BINARY_DIR}/packaging/${metainfo} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT qor)
    install(FILES ${desktop}/qor-generator.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages COMPONENT qor)
    foreach(icon IN ITEMS apps/qor-generator apps/qor-data-set-editor mimetypes/application-x-qor)
        get_filename_component(name ${icon} NAME)
        get_filename_component(kind ${icon} DIRECTORY)
        install(FILES ${desktop}/${name}.svg DESTINATION ${icons}/scalable/${kind} COMPONENT qor)
        foreach(size IN ITEMS 16 22 24 32 48 64 128 256)
            install(FILES ${CMAKE_SOURCE_DIR}/packaging/icons/${name}-${size}.png DESTINATION ${icons}/${size}x${size}/${kind}
                RENAME ${name}.png COMPONENT qor)
        endforeach()
    endforeach()
endif()

# ---- What both read, and the documents ----

install(DIRECTORY data/ DESTINATION ${data_directory} COMPONENT data)
install(DIRECTORY examples DESTINATION ${data_directory} COMPONENT data)
# The links between the documents are those of the source tree, so they keep their places.
install(FILES LICENSE README.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${doc_directory} COMPONENT data)
install(DIRECTORY docs DESTINATION ${doc_directory} COMPONENT data PATTERN "*.1" EXCLUDE)
file(RELATIVE_PATH to_examples /${doc_directory} /${data_directory}/examples)
install(CODE "file(CREATE_LINK ${to_examples} \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${doc_directory}/examples\" SYMBOLIC)"
    COMPONENT data)
