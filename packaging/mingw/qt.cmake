# The parts of Qt that the game uses, static, small, for Windows: read with `cmake -C` before Qt's own sources.
# Qt does not build without some that look as dispensable: dialog, messagebox, mainwindow, toolbar, menubar.
set(BUILD_SHARED_LIBS OFF CACHE BOOL "")
set(CMAKE_BUILD_TYPE MinSizeRel CACHE STRING "")
set(QT_BUILD_EXAMPLES OFF CACHE BOOL "")
set(QT_BUILD_TESTS OFF CACHE BOOL "")
set(QT_UNITY_BUILD ON CACHE BOOL "")
set(BUILD_WITH_PCH OFF CACHE BOOL "")
set(INPUT_opengl no CACHE STRING "")
foreach(feature
    pkg_config freetype vulkan network sql xml testlib dbus printsupport concurrent
    system_zlib system_png system_jpeg system_freetype system_harfbuzz system_pcre2 system_doubleconversion
    system_libb2 zstd glib icu
    jalalicalendar hijricalendar islamiccivilcalendar process commandlineparser
    mimetype sharedmemory systemsemaphore filesystemwatcher
    sortfilterproxymodel identityproxymodel transposeproxymodel concatenatetablesproxymodel stringlistmodel
    direct2d1_1 tuiotouch tabletevent sessionmanager systemtrayicon gif ico imageformat_ppm imageformat_xbm
    movie picture pdf texthtmlparser textmarkdownreader textmarkdownwriter textodfwriter
    standarditemmodel filesystemmodel undocommand undostack undogroup validator
    itemviews graphicsview graphicseffect mdiarea dockwidget toolbox statusbar
    colordialog fontdialog filedialog inputdialog errormessage progressdialog calendarwidget datetimeedit
    spinbox combobox fontcombobox textedit textbrowser tabwidget
    lcdnumber dial scroller progressbar splashscreen splitter stackedwidget syntaxhighlighter
    keysequenceedit completer wizard sizegrip style_stylesheet style_windowsvista gestures)
  set(FEATURE_${feature} OFF CACHE BOOL "")
endforeach()
