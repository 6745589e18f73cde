# What every measurement shares; sourced by script/bench.

microseconds() { echo "${EPOCHREALTIME/[.,]/}"; }
in_seconds() { awk -v us="$1" 'BEGIN { printf "%.3f", us / 1e6 }'; }

# median FILE: of the numbers in it, one a line.
median() { sort -n "$1" | awk '{ value[NR] = $1 } END { print value[int((NR + 1) / 2)] }'; }

# has_all NAME PROGRAM...: whether what a contestant needs is there; says that it is left out.
has_all() {
    local name=$1
    shift
    for program in "$@"; do
        command -v "$program" >/dev/null && continue
        echo "$name is not installed: left out (script/setup bench installs it)."
        return 1
    done
}

# When the run that was just made was done; measurements of what tells that itself have one of their own.
end_of_run() { microseconds; }

# run_once NAME: calls prepare, then the function NAME, and adds its time to its list.
run_once() {
    prepare
    local start
    start=$(microseconds)
    "$1" >/dev/null 2>&1
    echo $(($(end_of_run) - start)) >>"$folder/$1.times"
}

# compare TITLE RUNS NAME...: runs the functions one after the other in each round and tells their medians, and how
# the first one does beside the others. A function prepare is called before each run and does not count.
compare() {
    local title=$1 runs=$2 first=$3
    shift 2
    # The first runs also find out what the memory of the machine is like.
    for name in "$@"; do run_once "$name"; done
    rm -f "$folder"/*.times
    for ((round = 1; round <= runs; ++round)); do
        for name in "$@"; do run_once "$name"; done
    done
    local own
    own=$(median "$folder/$first.times")
    echo "$title, in $memory, median of $runs runs:"
    for name in "$@"; do tell_beside "$own" "$name" "$first"; done
    echo
}

tell_beside() {
    local own=$1 name=$2 first=$3 time ratio=
    time=$(median "$folder/$name.times")
    [ "$name" = "$first" ] || ratio=$(awk -v z="$own" -v t="$time" 'BEGIN {
        if (z > t / 2) printf "zefta takes %.2f times as long", z / t
        else printf "zefta is %.1f times as fast", t / z }')
    printf '%-22s %8s s   %s\n' "$name" "$(in_seconds "$time")" "$ratio"
}

# tell_memory WHAT COMMAND...: the most memory that the command used.
tell_memory() {
    local what=$1
    shift
    if [ -x /usr/bin/time ]; then
        /usr/bin/time -f "zefta used at most %M KB of memory $what" "$@" >/dev/null
    else
        echo "/usr/bin/time is not installed: peak memory left out (script/setup bench installs it)."
    fi
}

# tell_calls FILES COMMAND...: how often the command asks the system, by file.
tell_calls() {
    local files=$1
    shift
    has_all strace strace || return 0
    strace -f -c -o "$folder/calls" "$@" >/dev/null
    awk -v files="$files" '$NF == "total" { printf "System calls a file: %.1f\n", $4 / files }' "$folder/calls"
}

# make_models SECONDS: one file of each kind, by the real encoders.
make_models() {
    sox -n -r 44100 -b 16 -c 2 "$folder/model.wav" synth "$1" sine 440 sine 445 gain -9
    lame --quiet -b 128 "$folder/model.wav" "$folder/model.mp3"
    oggenc -Q -q3 "$folder/model.wav" -o "$folder/model.ogg"
    rm -f "$folder/model.mpc"
    mpcenc --silent "$folder/model.wav" "$folder/model.mpc" >/dev/null 2>&1
}

# make_collection FOLDER FILES SECONDS: a folder of tagged files of all kinds.
make_collection() {
    make_models "$3"
    mkdir "$1"
    "$programs/zefta_make_collection" "$1" "$2" "$folder"/model.{mp3,ogg,mpc}
}
