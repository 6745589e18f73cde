# Renaming the files of a folder. Each program is given a folder of fresh names. BENCH_RENAMED sets the files (10000).

files=${BENCH_RENAMED:-10000}
collection=$folder/collection renamed=$folder/renamed
make_collection "$collection" "$files" 1

prepare() {
    rm -rf "$renamed"
    cp -al "$collection" "$renamed"
}
zefta_rename() { (cd "$renamed" && "$programs/zefta" /rename /f1); }
rename_reference() { "$programs/zefta_rename_reference" "$renamed"; }

compare "Renaming $files tagged files" $((${BENCH_RUNS:-5} * 4 + 1)) zefta_rename rename_reference
prepare
cd "$renamed"
tell_calls "$files" "$programs/zefta" /rename /f1
cd "$folder"
rm -rf "$collection" "$renamed"
