# The list of a folder and the playlist of it, warm. BENCH_FILES sets the files of the folder (5000).

files=${BENCH_FILES:-5000}
collection=$folder/collection
make_collection "$collection" "$files" 8

prepare() { :; }
zefta_list() { "$programs/zefta" /list "$collection"; }
list_reference() { "$programs/zefta_list_reference" "$collection"; }
list_taglib() { "$programs/zefta_list_taglib" "$collection"; }
zefta_makelist() { (cd "$collection" && "$programs/zefta" /makelist /to "$folder/list.m3u"); }

# Twenty times as many runs as of the trim job: one takes some hundredths of a second.
runs=$((${BENCH_RUNS:-5} * 20 + 1))
contestants=(zefta_list list_reference)
if [ -x "$programs/zefta_list_taglib" ]; then
    contestants+=(list_taglib)
else
    echo "TagLib is not installed: left out (script/setup bench installs it)."
fi
compare "Listing $files tagged files" "$runs" "${contestants[@]}"
compare "The playlist of $files tagged files" "$runs" zefta_makelist zefta_list

mkdir "$folder/tenth"
ln "$collection"/*0.* "$folder/tenth"
for listed in "$folder/tenth" "$collection"; do
    tell_memory "for the list of $(ls "$listed" | wc -l) files" "$programs/zefta" /list "$listed"
done
tell_calls "$files" "$programs/zefta" /list "$collection"
rm -rf "$collection" "$folder/tenth"
