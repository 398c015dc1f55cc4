#include <clocale>

#include "app/console/terminal.h"
#include "app/unattended/main.h"
#include "files/program_folder.h"

int main(int argc, char** argv) {
  std::setlocale(LC_TIME, "");  // dates of the report; numbers never follow the locale
  quillon::console::prepareStreams();
  return quillon::unattended::Main(quillon::console::processArguments(argc, argv),
                                   quillon::files::programFolder());
}
