# cmake -D OUT=FILE.cpp -D FILES="NAME=PATH;..." -P embed.cmake: the page's own files as constants of
# the program, each with what a Content-Security-Policy knows it by.

# Bytes in hex as base64, three bytes to four digits.
function(base64_of hex result)
  set(digits "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/")
  set(text "")
  string(LENGTH "${hex}" length)
  foreach(at RANGE 0 ${length} 6)
    string(SUBSTRING "${hex}" ${at} 6 group)
    string(LENGTH "${group}" size)
    if(size EQUAL 0)
      break()
    endif()
    string(SUBSTRING "${group}0000" 0 6 group)
    math(EXPR bits "0x${group}")
    math(EXPR count "${size} * 2 / 3 + 1 - ${size} / 6")
    foreach(digit RANGE 0 3)
      math(EXPR index "(${bits} >> (18 - 6 * ${digit})) & 63")
      string(SUBSTRING "${digits}" ${index} 1 character)
      if(NOT digit LESS count)
        set(character "=")
      endif()
      string(APPEND text "${character}")
    endforeach()
  endforeach()
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

set(rows "")
foreach(file ${FILES})
  string(REGEX MATCH "^([^=]+)=(.*)$" all "${file}")
  set(name "${CMAKE_MATCH_1}")
  set(path "${CMAKE_MATCH_2}")
  # Without the maps that libraries name for debuggers: nobody has them.
  file(READ "${path}" text)
  string(REGEX REPLACE "\n?/[/*]# sourceMappingURL=.*$" "" text "${text}")
  file(WRITE "${OUT}.part" "${text}")
  file(READ "${OUT}.part" bytes HEX)
  file(SHA256 "${OUT}.part" digest)
  base64_of("${digest}" digest)
  string(REGEX REPLACE "(..)" "\\\\x\\1" bytes "${bytes}")
  # In pieces that every compiler takes.
  string(REGEX REPLACE "(................................................................)" "\\1\"\n\"" bytes "${bytes}")
  string(APPEND rows "    {\"${name}\", text(\n\"${bytes}\"), \"sha256-${digest}\"},\n")
endforeach()

file(WRITE "${OUT}" "#include \"simrec/report/assets.h\"

namespace simrec::report {
namespace {

template <std::size_t Size>
constexpr std::string_view text(const char (&bytes)[Size]) {
  return {bytes, Size - 1};
}

constexpr Asset kAssets[] = {
${rows}};

}  // namespace

const Asset& asset(std::string_view name) {
  for (const Asset& each : kAssets) {
    if (each.name == name) return each;
  }
  throw std::logic_error(\"no part of the page is called \" + std::string(name));
}

}  // namespace simrec::report
")
file(REMOVE "${OUT}.part")
