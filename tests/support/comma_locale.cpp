#include "tests/support/comma_locale.h"

#include <clocale>
#include <cstdlib>

#include "tests/support/camera_data.h"

CommaLocale::CommaLocale() {
  // Only the numbers of a locale, for it to be made at once.
  writeFile(kCamera + "source",
            "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\ngrouping 3\nEND LC_NUMERIC\n");
  const std::string make = "cd " + kCamera + " && localedef -c -i ./source -f ANSI_X3.4-1968 ./de";
  if (std::system((make + " 2>/dev/null").c_str()) == -1) return;
  setenv("LOCPATH", kCamera.c_str(), 1);
  inC = std::setlocale(LC_ALL, "de") != nullptr;
}

CommaLocale::~CommaLocale() {
  std::setlocale(LC_ALL, "C");
  unsetenv("LOCPATH");
}
