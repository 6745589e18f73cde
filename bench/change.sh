# Changing the artist of MP3 files. BENCH_CHANGED sets the small ones (2000), whose tags are rewritten in place; as
# many that have no tag yet are copied, and so are a hundred songs of usual length.

files=${BENCH_CHANGED:-2000}
original=$folder/original changed=$folder/changed

# make_songs COUNT SECONDS
make_songs() {
    rm -rf "$original"
    make_models "$2"
    mkdir "$original"
    for ((n = 0; n < $1; ++n)); do cp "$folder/model.mp3" "$original/Track $n.mp3"; done
}
prepare() {
    rm -rf "$changed"
    cp -r "$original" "$changed"
}
zefta_change() { (cd "$changed" && "$programs/zefta" /change /a "New Artist"); }
change_in_place() { "$programs/zefta_change_reference" place "$changed"; }
change_and_grow() { "$programs/zefta_change_reference" grow "$changed"; }
change_taglib() { "$programs/zefta_change_taglib" "New Artist" "$changed"; }

# tell_calls_of_change: of the small files, as prepare makes them.
tell_calls_of_change() {
    prepare
    cd "$changed"
    tell_calls "$files" "$programs/zefta" /change /a "New Artist"
    cd "$folder"
}

make_songs "$files" 1
compare "Giving $files files of 18 kB a tag" "${BENCH_RUNS:-5}" zefta_change change_and_grow
tell_calls_of_change
echo

(cd "$original" && "$programs/zefta" /change /a "Old Artist" /t "Some Title" /y 1999 /tn 3)
contestants=(zefta_change change_in_place)
if [ -x "$programs/zefta_change_taglib" ]; then
    contestants+=(change_taglib)
else
    echo "TagLib is not installed: left out (script/setup bench installs it)."
fi
compare "Changing $files tags in place" $((${BENCH_RUNS:-5} * 4 + 1)) "${contestants[@]}"
tell_calls_of_change
echo

make_songs 100 200
compare "Giving 100 songs of 3 MB a tag" "${BENCH_RUNS:-5}" zefta_change change_and_grow
rm -rf "$original" "$changed"
