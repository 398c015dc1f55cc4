#include <clocale>

#include "app/unattended/main.h"
#include "convert/program_folder.h"

int main(int argc, char** argv) {
  std::setlocale(LC_TIME, "");  // dates of the report; numbers never follow the locale
  return quillon::unattended::Main({argv + (argc > 0 ? 1 : 0), argv + argc},
                                   quillon::convert::programFolder());
}
