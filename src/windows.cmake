# The program with windows, on Qt 6.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets PrintSupport)

add_library(quillon_windows STATIC
  windows/app_icon.cpp
  windows/assignment_list.cpp
  windows/content_area.cpp
  windows/dark_style.cpp
  windows/dragged_files.cpp
  windows/enter_key.cpp
  windows/error_window.cpp
  windows/file_dialog.cpp
  windows/help_viewer.cpp
  windows/hint_list.cpp
  windows/language_dialog.cpp
  windows/layer_colours.cpp
  windows/layer_delegate.cpp
  windows/layer_editor.cpp
  windows/layer_failure.cpp
  windows/layer_grid.cpp
  windows/live_preview.cpp
  windows/loss_list.cpp
  windows/main_controls.cpp
  windows/main_window.cpp
  windows/main_window_files.cpp
  windows/main_window_preview.cpp
  windows/main_window_state.cpp
  windows/main_window_texts.cpp
  windows/number_edit.cpp
  windows/path_edit.cpp
  windows/path_label.cpp
  windows/picture_bar.cpp
  windows/picture_input.cpp
  windows/picture_notes.cpp
  windows/picture_output.cpp
  windows/picture_painter.cpp
  windows/picture_pen.cpp
  windows/picture_tiles.cpp
  windows/picture_view.cpp
  windows/picture_viewport.cpp
  windows/preview_panel.cpp
  windows/print_protocol.cpp
  windows/progress_dialog.cpp
  windows/qt_file_dialog.cpp
  windows/qt_texts.cpp
  windows/question.cpp
  windows/queue_model.cpp
  windows/queue_window.cpp
  windows/report_window.cpp
  windows/result_panel.cpp
  windows/rules_group.cpp
  windows/save_failure.cpp
  windows/scene_layers.cpp
  windows/screen_fit.cpp
  windows/shell.cpp
  windows/splash.cpp
  windows/system_file_dialog_${QUILLON_PLATFORM}.cpp
  windows/system_help_${QUILLON_PLATFORM}.cpp
  windows/system_shell_${QUILLON_PLATFORM}.cpp
  windows/tool_tips.cpp
  windows/trap.cpp
  windows/whole_text_delegate.cpp
  windows/window_fault_view.cpp
  windows/window_host.cpp
  windows/window_state.cpp)
target_link_libraries(quillon_windows PUBLIC
  quillon_batch quillon_workbench quillon_errors Qt6::Widgets
  Qt6::PrintSupport)
# Qt's own texts in German are part of the program, as a static Qt comes without them. A Qt for
# another system may lack the file; this machine's serves as well.
find_file(QUILLON_QT_GERMAN qtbase_de.qm
  HINTS ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_TRANSLATIONS}
  PATHS /usr/share/qt6/translations
  NO_CMAKE_FIND_ROOT_PATH)
if(NOT QUILLON_QT_GERMAN)
  message(FATAL_ERROR "Qt's own texts in German, the file qtbase_de.qm, are missing. "
    "Please install Qt's translations (on Debian: qt6-translations-l10n).")
endif()
get_filename_component(quillonQtTranslations ${QUILLON_QT_GERMAN} DIRECTORY)
# Later formats would contain the time of the file.
qt_add_resources(quillon_windows quillon_qt_german PREFIX /i18n BASE ${quillonQtTranslations}
  FILES ${QUILLON_QT_GERMAN} OPTIONS -no-compress --format-version 1)
# Signals use Q_EMIT; Qt's lower-case keywords could clash with ordinary names.
target_compile_definitions(quillon_windows PUBLIC QT_NO_KEYWORDS)
target_compile_definitions(quillon_windows PRIVATE QUILLON_VERSION="${PROJECT_VERSION}")

# Qt's headers cost more than the windows themselves; the preset "debug" checks that each source
# names its own. GCC 12 takes joined strings of precompiled headers for overlong copies.
set(precompiled_options ${QUILLON_PCH_OPTIONS}
  $<$<CXX_COMPILER_ID:GNU>:-Wno-stringop-overflow> $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds>)
target_compile_options(quillon_windows PRIVATE ${precompiled_options})
target_precompile_headers(quillon_windows PRIVATE
  <QApplication> <QBoxLayout> <QComboBox> <QDialog> <QDir> <QLabel> <QLineEdit> <QMessageBox>
  <QPushButton> <QTableView> <filesystem> <functional> <optional>)

add_library(quillon_program STATIC
  app/window/application.cpp
  app/window/dialog_progress.cpp
  app/window/display_${QUILLON_PLATFORM}.cpp
  app/window/main.cpp
  app/window/system_colours_${QUILLON_PLATFORM}.cpp)
target_link_libraries(quillon_program PUBLIC quillon_windows quillon_unattended)
# The headers precompiled for the windows serve only where the same is defined.
target_compile_definitions(quillon_program PRIVATE QUILLON_VERSION="${PROJECT_VERSION}")
set_source_files_properties(app/window/main.cpp PROPERTIES
  COMPILE_DEFINITIONS QUILLON_VIEWER_PAGE="${QUILLON_VIEWER_PAGE}")
target_compile_options(quillon_program PRIVATE ${precompiled_options})
target_precompile_headers(quillon_program REUSE_FROM quillon_windows)

quillon_compile_soon(quillon_windows quillon_program)
if(QUILLON_QUICK)
  # Each is a single unit, which would be the only one to use its precompiled headers.
  set_target_properties(quillon_windows quillon_program PROPERTIES DISABLE_PRECOMPILE_HEADERS ON)
endif()

add_executable(quillon WIN32 app/quillon_main.cpp)
target_link_libraries(quillon PRIVATE quillon_program)
if(WIN32)
  target_link_libraries(quillon_windows PRIVATE comdlg32 shell32)
  quillon_windows_resources(quillon "DXF to EAGLE script converter" ${PROJECT_SOURCE_DIR}/packaging/quillon.svg)
endif()
if(UNIX AND NOT APPLE)
  install(TARGETS quillon COMPONENT window)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/help/ DESTINATION ${CMAKE_INSTALL_DATADIR}/quillon/help
    COMPONENT window FILES_MATCHING PATTERN "*.html" PATTERN "*.css" PATTERN "*.png")
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/quillon.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT window)
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/quillon-mime.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME quillon.xml
    COMPONENT window)
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/quillon.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT window)
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/example.quillon.quillon.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT window)
  if(NOT CMAKE_CROSSCOMPILING)
    quillon_man_page(quillon window)
  endif()
endif()
add_custom_command(TARGET quillon POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${PROJECT_SOURCE_DIR}/help
    $<TARGET_FILE_DIR:quillon>/help)
