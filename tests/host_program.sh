#!/usr/bin/env bash
# host_program.sh FOLDER COMMAND...: odd ways of starting the host program, which is
# COMMAND. A row is an exit status, what stands on stderr, and a command that is run in
# FOLDER, which is emptied; what the command prints on stdout is in the file `out`.
rm -rf "$1" && mkdir -p "$1" && cd "$1" || exit 2
shift
program=("$@") failures=0
# Where the machine's own data folder is borrowed, other tests may have it just now.
waits='capture_session: waits for another program that uses /data/vendor/camera'

export ASAN_OPTIONS=detect_leaks=0  # the library keeps some documents on purpose

capture() { "${program[@]}" "$@"; }

# stage FOLDER: all of a run's records to where a readback looks.
stage() { find "$1" -mindepth 2 -name 'simulation_*' -exec cp {} "$1" \; ; }

# full OPTION ARGUMENT...: in a small file system, mounted at full/.
full() {
  unshare "${own[@]}" sh -c 'mount -t tmpfs -o "$0" tmpfs full && "$@"' \
    "$1" "${program[@]}" "${@:2}"
}

# full_replay ARGUMENT...: in a file system that the staged files and another one fill.
full_replay() {
  export -f stage
  unshare "${own[@]}" bash -c 'mount -t tmpfs -o size=40m tmpfs full && cp -r data full/ && stage full/data &&
    head -c 50m /dev/zero >full/filler 2>/dev/null; "$@"' bash "${program[@]}" "$@"
}

rows() {
  local status message command ended said
  while IFS='|' read -r status message command; do
    said=$(eval "$command" 2>&1 >out)
    ended=$?
    said=${said#"$waits"} said=${said#$'\n'}
    [ "$ended" != "$status" ] || [ "$said" != "${message:+capture_session: $message}" ] || continue
    printf '%s\n  ended with %s, expected %s\n  said     %s\n  expected %s\n' \
      "$command" "$ended" "$status" "$said" "$message"
    failures=$((failures + 1))
  done
}

ln -s nowhere dangling
ln -s loop loop
mkdir full foreign
touch foreign/notes

rows <<'END'
0||capture --requests 010 --cameras 1 --data data && grep -q 'Requests: 10,' out
0||stage data && capture --replay --cameras 1 --data data && grep -q 'Replayed 26 of 26' out
0||capture --requests 1 --data data && awk 'length > 100 { exit 1 }' out
0||capture --help && awk 'length > 100 { exit 1 }' out
1|stdout did not take all output: Bad file descriptor|capture --requests 1 --data data >&-
1||capture --requests 1 --data data <&- >&- 2>&-
1||grep -rlE '^(Scene|capture_session): ' data
1|stdout did not take all output: No space left on device|capture --requests 1 --data data >/dev/full
1|stdout did not take all output: No space left on device|capture --help >/dev/full
2|--requests: '0x10' is no whole number from 1 to 100000 (--help lists the options)|capture --requests 0x10
2|--requests: '100001' is no whole number from 1 to 100000 (--help lists the options)|capture --requests 100001
2|--cameras: '' is no whole number from 1 to 6 (--help lists the options)|capture --cameras ''
2|--image: must be named (--help lists the options)|capture --image ''
2|--data: must be named (--help lists the options)|capture --data ''
2|dangling: is a link that leads nowhere|capture --data dangling
2|dangling/: is a link that leads nowhere|capture --data dangling/
2|loop: Too many levels of symbolic links|capture --data loop
2|foreign: holds notes, which no run of this program has left there; choose another folder|capture --data foreign
2|a/b: No such file or directory|capture --data a/b
END

# What needs a file system of its own, and a user who is not root.
own=(--mount)
[ "$(id -u)" = 0 ] || own=(--map-root-user --mount)
if unshare "${own[@]}" mount -t tmpfs tmpfs full 2>/dev/null; then
  rows <<'END'
1|full/data: No space left on device; the session is not complete|full size=1m --requests 6 --data full/data
1|full/data: No space left on device; the session is not complete|full nr_inodes=90 --requests 6 --data full/data
1|full/data: No space left on device; the session is not complete|full_replay --replay --cameras 1 --data full/data
END
fi
ordinary=()
[ "$(id -u)" != 0 ] || ordinary=(setpriv --reuid=65534 --regid=65534 --clear-groups)
mkdir closed && chmod 555 closed && [ "$(id -u)" != 0 ] || chown 65534 closed
if "${ordinary[@]}" test -x "${program[-1]}" -a -x closed; then
  rows <<'END'
2|closed: Permission denied|"${ordinary[@]}" "${program[@]}" --data closed
2|/etc: belongs to another user; choose another folder (--data)|"${ordinary[@]}" "${program[@]}" --data /etc
END
fi
exit $((failures > 0))
