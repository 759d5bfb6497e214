#include "tests/support/comma_locale.h"

#include <clocale>
#include <cstdlib>
#include <locale>

namespace {

struct Commas : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

}  // namespace

CommaLocale::CommaLocale() {
  std::locale::global(std::locale(std::locale::classic(), new Commas));
  const char* compile = "localedef -i de_DE -f UTF-8 /data/vendor/camera/de_DE.UTF-8 2>/dev/null";
  if (std::system(compile) != 0) return;
  setenv("LOCPATH", "/data/vendor/camera", 1);
  inC = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
}

CommaLocale::~CommaLocale() {
  std::setlocale(LC_ALL, "C");
  std::locale::global(std::locale::classic());
  unsetenv("LOCPATH");
}
