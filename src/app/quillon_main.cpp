#include <clocale>

#include "app/console/terminal.h"
#include "app/window/main.h"
#include "files/program_folder.h"

int main(int argc, char** argv) {
  std::setlocale(LC_TIME, "");  // for dates in the report; numbers never depend on the locale
  quillon::console::prepareStreams();
  return quillon::window::Main(argc, argv, quillon::files::programFolder());
}
