#include "app/console/terminal.h"
#include "app/window/main.h"
#include "files/program_folder.h"

int main(int argc, char** argv) {
  quillon::console::prepareStreams();
  return quillon::window::Main(argc, argv, quillon::files::programFolder());
}
