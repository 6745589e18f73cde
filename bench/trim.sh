# The trim job with normalising. Each program is given a fresh copy of the file and has to leave a normalised one, in
# its place or beside it. BENCH_MB sets the size of the WAV file (650).

size=$((${BENCH_MB:-650} * 1000000))
original=$folder/original.wav input=$folder/input.wav output=$folder/output.wav
"$programs/zefta_make_wave" "$original" "$size"

prepare() {
    rm -f "$output"
    cp "$original" "$input"
}
zefta_trim() { "$programs/zefta" /wavetrim "$input" /f1 /zx /nb /norm /dontshowexec; }
reference() { "$programs/zefta_reference" "$input" "$output"; }
reference_in_place() { reference && mv "$output" "$input"; }
normalize_audio() { normalize-audio -q --peak --amplitude=-0.4455dBFS "$input"; }
sox_gain() { sox "$input" "$output" gain -n -0.4455; }

contestants=(zefta_trim reference reference_in_place)
has_all normalize-audio normalize-audio && contestants+=(normalize_audio)
has_all sox sox && contestants+=(sox_gain)
compare "Trimming and normalising $((size / 1000000)) MB of 16-bit stereo" "${BENCH_RUNS:-5}" "${contestants[@]}"

prepare
tell_memory "for it" "$programs/zefta" /wavetrim "$input" /f1 /zx /nb /norm /dontshowexec
rm -f "$original" "$input" "$output" "$input".BAK
