// A record file as somebody has changed it.
#pragma once

#include <string>

/// `text` with `by` for what stands from the first `from` to the next `to`. Without `from`: `by`
/// alone, or the bytes that `to` says.
inline std::string edited(std::string text, const std::string& from, const std::string& to,
                          const std::string& by) {
  if (from.empty()) return to.empty() ? by : text.substr(0, std::stoul(to));
  const std::size_t begin = text.find(from), end = text.find(to, begin + from.size());
  if (end == text.npos) return "there is no " + from;
  return text.replace(begin, end + to.size() - begin, by);
}
