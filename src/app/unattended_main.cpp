#include "app/console/terminal.h"
#include "app/unattended/main.h"
#include "files/program_folder.h"

int main(int argc, char** argv) {
  quillon::console::prepareStreams();
  return quillon::unattended::Main(quillon::console::processArguments(argc, argv),
                                   quillon::files::programFolder());
}
