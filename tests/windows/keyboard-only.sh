#!/usr/bin/env bash
# keyboard-only.sh ZEFTA: the real program on a display of its own, from its start to a renamed, tagged and encoded
# file, with nothing but keys.
set -euo pipefail
zefta=$1
work=$(mktemp -d)
music=$work/music
mkdir -m 700 "$work/runtime" "$music"
export XDG_DATA_HOME=$work/data XDG_CONFIG_HOME=$work/config XDG_CONFIG_DIRS=$work/config XDG_RUNTIME_DIR=$work/runtime HOME=$work
export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb QT_QPA_PLATFORMTHEME= DBUS_SESSION_BUS_ADDRESS=unix:path=$work/no-bus
unset WAYLAND_DISPLAY

fail() {
    echo "FAILED: $*" >&2
    import -window root "${KEYBOARD_PICTURE:-$work/failed.png}" 2>/dev/null || true
    ls -la "$music" >&2
    cat "$work"/*.log >&2
    exit 1
}

end() {
    kill $(jobs -p) 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$work"
}
trap end EXIT

# wait_for WHAT COMMAND...: until the command succeeds, half a minute at most.
wait_for() {
    local what=$1
    shift
    for ((try = 0; try < 300; ++try)); do
        if "$@" >/dev/null 2>&1; then return 0; fi
        sleep 0.1
    done
    fail "waited in vain for $what"
}

# The window that has the keyboard is the one of that title.
has_keyboard() { xdotool getactivewindow getwindowname 2>/dev/null | grep -qE "$1"; }
window() { wait_for "the window $1" has_keyboard "$1"; sleep 0.2; }
key() { xdotool key --delay 60 --clearmodifiers "$@"; sleep 0.1; }
# A field is emptied before it is typed into.
type_over() { key ctrl+a; xdotool type --delay 30 "$1"; }
tag_is() { [ "$(ffprobe -v error -show_entries "format_tags=$2" -of default=nw=1:nk=1 "$1")" = "$3" ]; }

sox -n -r 44100 -b 16 -c 2 "$music/tone.wav" synth 2 sine 440 gain -6
lame --quiet -b 128 --id3v1-only --tt "Old Title" --ta "Old Artist" "$music/tone.wav" "$music/old.mp3"

# A display that nobody else uses: the server tells its number once it listens.
# It must not start anew when the first who asks it something goes.
Xvfb -displayfd 3 -noreset -screen 0 1280x900x24 -nolisten tcp 3>"$work/display" 2>"$work/server.log" &
wait_for "the display" test -s "$work/display"
export DISPLAY=:$(tr -d '\n' <"$work/display")
openbox >"$work/manager.log" 2>&1 &
has_manager() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"; }
wait_for "the window manager" has_manager

"$zefta" "$music" >"$work/zefta.log" 2>&1 &
program=$!
window "^Kestrin Zeftaworks"

# The list has the keyboard; behind ".." stand old.mp3 and tone.wav.
key Home Down
key F2
window "^File operation|^Renaming"
type_over "renamed"
key Return
wait_for "the new name" test -f "$music/renamed.mp3"
window "^Kestrin Zeftaworks"

key ctrl+Return
window "renamed.mp3"
type_over "New Title"
key Return
wait_for "the new title" tag_is "$music/renamed.mp3" title "New Title"
tag_is "$music/renamed.mp3" artist "Old Artist" || fail "the artist was not kept"
window "^Kestrin Zeftaworks"

# The extended rename by its first rule: the other files of the folder have no tags.
key ctrl+r
window "extended rename"
key alt+1
key Return
wait_for "the name by its tags" test -f "$music/Old Artist - New Title.MP3"
window "^Kestrin Zeftaworks [0-9]"

# The options: the second page, its first box, OK.
key F12
window "options"
key ctrl+Tab Tab
key space
key Return
wait_for "the entry of the context menus" test -s "$XDG_DATA_HOME/file-manager/actions/zefta-file-information.desktop"
window "^Kestrin Zeftaworks [0-9]"

# The menu key opens the commands of a WAV file: the first mode of its MP3 modes is 128 kbps.
key End
key Menu
sleep 0.3
key m
sleep 0.3
key Home Return
window "^MP3 Encoding"
key Return
wait_for "the encoded file" test -s "$music/tone.MP3"
window "^Kestrin Zeftaworks"
wait_for "its title" tag_is "$music/tone.MP3" title "tone"

key ctrl+w
for ((try = 0; try < 100; ++try)); do kill -0 "$program" 2>/dev/null || break; sleep 0.1; done
kill -0 "$program" 2>/dev/null && fail "the program did not end"
wait "$program" || fail "the program ended with status $?"
echo "renamed, tagged and encoded by keys alone"
