# The program with its windows, on Qt 6.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets PrintSupport)

add_library(quillon_windows STATIC
  ui/windows/app_icon.cpp
  ui/windows/content_area.cpp
  ui/windows/enter_key.cpp
  ui/windows/error_window.cpp
  ui/windows/file_dialog.cpp
  ui/windows/help_viewer.cpp
  ui/windows/language_dialog.cpp
  ui/windows/layer_colours.cpp
  ui/windows/layer_delegate.cpp
  ui/windows/layer_editor.cpp
  ui/windows/layer_grid.cpp
  ui/windows/main_controls.cpp
  ui/windows/main_window.cpp
  ui/windows/main_window_files.cpp
  ui/windows/number_edit.cpp
  ui/windows/path_edit.cpp
  ui/windows/path_label.cpp
  ui/windows/print_protocol.cpp
  ui/windows/progress_dialog.cpp
  ui/windows/qt_file_dialog.cpp
  ui/windows/qt_texts.cpp
  ui/windows/question.cpp
  ui/windows/report_window.cpp
  ui/windows/result_panel.cpp
  ui/windows/save_failure.cpp
  ui/windows/screen_fit.cpp
  ui/windows/shell.cpp
  ui/windows/splash.cpp
  ui/windows/system_file_dialog_${QUILLON_PLATFORM}.cpp
  ui/windows/system_help_${QUILLON_PLATFORM}.cpp
  ui/windows/system_shell_${QUILLON_PLATFORM}.cpp
  ui/windows/tool_tips.cpp
  ui/windows/trap.cpp
  ui/windows/whole_text_delegate.cpp
  ui/windows/window_fault_view.cpp
  ui/windows/window_host.cpp)
target_link_libraries(quillon_windows PUBLIC quillon_settings quillon_errors Qt6::Widgets
  Qt6::PrintSupport)
# The namespace emit is not Qt's keyword.
target_compile_definitions(quillon_windows PUBLIC QT_NO_KEYWORDS)
target_compile_definitions(quillon_windows PRIVATE
  QUILLON_VERSION="${PROJECT_VERSION}"
  QUILLON_VIEWER_PAGE="${QUILLON_VIEWER_PAGE}")

add_library(quillon_program STATIC
  app/window/application.cpp
  app/window/dialog_progress.cpp
  app/window/display_${QUILLON_PLATFORM}.cpp
  app/window/main.cpp)
target_link_libraries(quillon_program PUBLIC quillon_windows quillon_unattended)

add_executable(quillon WIN32 app/quillon_main.cpp)
target_link_libraries(quillon PRIVATE quillon_program)
if(WIN32)
  target_link_libraries(quillon_windows PRIVATE comdlg32 shell32)
  quillon_windows_resources(quillon "DXF to EAGLE script converter" ${PROJECT_SOURCE_DIR}/packaging/quillon.svg)
endif()
if(UNIX AND NOT APPLE)
  install(TARGETS quillon)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/help/ DESTINATION ${CMAKE_INSTALL_DATADIR}/quillon/help
    FILES_MATCHING PATTERN "*.html" PATTERN "*.css")
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/quillon.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/quillon-mime.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME quillon.xml)
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/quillon.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()
add_custom_command(TARGET quillon POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${PROJECT_SOURCE_DIR}/help
    $<TARGET_FILE_DIR:quillon>/help)
