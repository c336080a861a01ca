# Where the plug-in for Qt Designer is installed, below the prefix: Designer looks into the folder
# "designer" of Qt's plug-ins.
if(NOT QT6_INSTALL_PLUGINS)
    set(QT6_INSTALL_PLUGINS "${CMAKE_INSTALL_LIBDIR}/qt6/plugins")
endif()
set(KTUTILITY_DESIGNER_FOLDER "${QT6_INSTALL_PLUGINS}/designer" CACHE STRING
    "Where the plug-in for Qt Designer is installed, below the prefix")
