// The classic "C" locale for one thread and one scope. The C library's number
// functions heed the locale that the host process has set; inside they don't.
#pragma once

#include <locale.h>

namespace simulation {

class ClassicLocale {
 public:
  ClassicLocale() : previous_(uselocale(classic())) {}
  ~ClassicLocale() { uselocale(previous_); }
  ClassicLocale(const ClassicLocale&) = delete;
  ClassicLocale& operator=(const ClassicLocale&) = delete;

 private:
  static locale_t classic() {
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
  }

  locale_t previous_;
};

}  // namespace simulation
