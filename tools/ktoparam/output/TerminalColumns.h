#pragma once

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>

/// Where a terminal does not tell, and where there is none.
inline constexpr int kUsualColumns = 80;

/// The width of the terminal that a stream leads to; 0 when it leads elsewhere.
inline int terminalColumns(FILE* stream) {
  if (isatty(fileno(stream)) == 0) return 0;
  winsize size{};
  const bool isKnown = ioctl(fileno(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return isKnown ? size.ws_col : kUsualColumns;
}
