// A process whose language writes 1.234,5: while it lives, the C library does so.
#pragma once

struct CommaLocale {
  CommaLocale();
  ~CommaLocale();

  bool inC = false;  ///< otherwise the system can't make such a locale for the C library
};
