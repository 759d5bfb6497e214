# The device's architecture with Debian's cross compiler. The libraries are those
# of Debian's arm64 packages, installed beside the machine's own; programs run
# under qemu-user.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)

# qemu runs threads of its own, and a process with threads cannot enter a user
# namespace. A program that mounts needs one unless it is root's, so that unshare
# gives it one before qemu starts, where there are any.
execute_process(COMMAND id -u OUTPUT_VARIABLE user OUTPUT_STRIP_TRAILING_WHITESPACE)
execute_process(COMMAND unshare --user true RESULT_VARIABLE refused ERROR_QUIET)
if(user EQUAL 0 OR refused)
  set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64)
else()
  set(CMAKE_CROSSCOMPILING_EMULATOR unshare --user --map-root-user qemu-aarch64)
endif()
