# What `cmake --install` lays down.
include(GNUInstallDirs)
install(DIRECTORY data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/vantrel)
