# The window: how long it takes to show a folder; sourced by script/bench. Needs Xvfb; BENCH_FILES sets the files of the
# large folder (20000).

window=$programs/zefta_window_benchmark
has_all "The window" Xvfb dbus-daemon "$window" || return 0

small=$folder/thousand large=$folder/many
make_collection "$small" 1000 8
make_collection "$large" "${BENCH_FILES:-20000}" 8

Xvfb :97 -noreset -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
display=$!
export DISPLAY=:97 XDG_RUNTIME_DIR=$folder
for ((try = 0; try < 50; ++try)); do [ -e /tmp/.X11-unix/X97 ] && break || sleep 0.1; done

# Every desktop has a bus; the toolkit would start one for each window otherwise.
dbus-daemon --session --nofork --print-address=1 >"$folder/bus" 2>/dev/null &
bus=$!
for ((try = 0; try < 50; ++try)); do [ -s "$folder/bus" ] && break || sleep 0.1; done
DBUS_SESSION_BUS_ADDRESS=$(<"$folder/bus")
export DBUS_SESSION_BUS_ADDRESS

# Windows tell when they are painted.
painted=$folder/painted
prepare() { rm -f "$painted"; }
end_of_run() { if [ -e "$painted" ]; then grep . "$painted" || kill $$; else microseconds; fi; }
# The program as it is; the toolkit loads who watches it, whose time counts as well.
watched() { QT_PLUGIN_PATH=$programs/plugins QT_QPA_GENERIC_PLUGINS=windowwatch:$1 "$programs/zefta" "$small" >"$painted"; }
window_view() { watched view; }
window_rows() { watched rows; }
window_empty() { "$window" empty >"$painted"; }
list_of_window() { "$programs/zefta" /list "$small"; }
compare "From the start to the painted list of 1,000 files" $((${BENCH_RUNS:-5} * 6 + 1)) \
    window_view window_rows window_empty list_of_window

echo "Entering a folder of ${BENCH_FILES:-20000} files in the open window, milliseconds, 5 times:"
for ((run = 0; run < 5; ++run)); do "$window" open "$large"; done
echo "Turning over its pages, 5 times:"
for ((run = 0; run < 5; ++run)); do "$window" scroll "$large"; done

batch_job() { "$programs/zefta" /rename /f1 "$folder/nothing.mp3"; }
lame_version() { lame --version; }
compare "Start of a job that has nothing to do" 101 batch_job lame_version
end_of_run() { microseconds; }
kill "$display" "$bus" || true
unset DISPLAY DBUS_SESSION_BUS_ADDRESS
rm -rf "$small" "$large"
