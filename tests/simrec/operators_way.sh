#!/usr/bin/env bash
# operators_way.sh FOLDER HOST_PROGRAM SIMREC [EMULATOR...]: an image of a session is staged,
# replayed by the host program and verified, as it is and without one of its files. FOLDER is
# emptied. Where the replay's dump may differ from the image is what the host program's table says
# "identical but for" of, as far as a file has it.
rm -rf "$1" && mkdir -p "$1" && cd "$1" || exit 2
host=$2 simrec=$3 failures=0 options=(--cameras 1 --requests 12 --data data)
shift 3
emulator=("$@")

export ASAN_OPTIONS=detect_leaks=0  # the library keeps some documents on purpose

host() { "${emulator[@]}" "$host" "${options[@]}" "$@"; }
simrec() { "${emulator[@]}" "$simrec" --data data "$@"; }

fail() {
  printf '%s\n' "$1"
  cat said
  failures=$((failures + 1))
}

# expect STATUS COMMAND...: what it says is in the file `said`.
expect() {
  local due=$1 ended
  shift
  "$@" >said 2>&1
  ended=$?
  [ $ended = "$due" ] || fail "$* ended with $ended, not with $due:"
}

said() { grep -qF "$1" said || fail "not said: $1"; }

expect 0 host --tell told
image=$(sed -n 2p told)
expect 0 simrec diff "$image" "$image"
expect 0 simrec stage "$image"
expect 0 host --replay
said 'Replayed 26 of 26 records'
expect 0 simrec verify "$image" REPLAYED
expect 1 simrec diff "$image" REPLAYED

sed -nE 's/^simulation_(.*)  different$/\1/p
         s/^  [0-9]+ bytes?:( \[[0-7], [1-8]\))+$/  of the first 8 bytes/p; t
         s/^  ([[:alnum:]]+) .*$/  \1/p
         s/^([0-9]+) records: ([0-9]+) different$/\2 of \1/p' said >found
expect 0 diff - found <<'END'
AWB_AECData_camId[0].xml
  AECSettled
AWB_FaceROI_camId[0].bin
  of the first 8 bytes
AWB_ParsedAWBStatsOutput_preview_camId[0].xml
  channelGainThreshold
AWB_ParsedAWBStatsOutput_snapshot_camId[0].xml
  channelGainThreshold
FACE_FaceROI_camId[0].bin
  of the first 8 bytes
OfflineAWB_ParsedAWBStatsOutput_camId[0].xml
  channelGainThreshold
ZOAWB_SpectralSensorInfo.xml
  flickerFrequency
7 of 31
END

for staged in data/simulation_*; do
  mv "$staged" kept
  expect 0 host --replay
  expect 1 simrec verify "$image" REPLAYED
  # Shading files are numbered anew when they are staged.
  said "not fed       $(basename "${staged%_index*}")"
  mv kept "$staged"
done
expect 0 simrec unstage
exit $((failures > 0))
