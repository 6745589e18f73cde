# Changing the artist of MP3 files. BENCH_CHANGED sets the small ones (2000), whose tags are rewritten in place; a
# hundred songs of usual length have no tag yet and are copied.

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

make_songs "$files" 1
(cd "$original" && "$programs/zefta" /change /a "Old Artist" /t "Some Title" /y 1999 /tn 3)
contestants=(zefta_change change_in_place)
if [ -x "$programs/zefta_change_taglib" ]; then
    contestants+=(change_taglib)
else
    echo "TagLib is not installed: left out (script/setup bench installs it)."
fi
compare "Changing $files tags in place" $((${BENCH_RUNS:-5} * 4 + 1)) "${contestants[@]}"
prepare
cd "$changed"
tell_calls "$files" "$programs/zefta" /change /a "New Artist"
cd "$folder"

make_songs 100 200
compare "Giving 100 songs of 3 MB a tag" "${BENCH_RUNS:-5}" zefta_change change_and_grow
rm -rf "$original" "$changed"
