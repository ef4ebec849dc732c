# Several processes over one folder of results.
. "$(dirname "$0")/harness.sh"
: >stderr
mkdir photos one two
for number in 1 2 3 4 5 6 7 8 9 10 11 12; do
    convert -size "$((40 + number))x40" xc:green "photos/photo $number.jpg"
    convert -size "$((40 + number))x30" xc:red "one/same.jpg"
done

if command -v parallel >/dev/null; then
    # The line of the README.
    find photos -name '*.jpg' -print0 |
        parallel -0 -X -j 4 "$vellora" render --out results --filter Grey {} 2>stderr ||
        fail "parallel reports a failure"
    holds 12 results
    for number in 1 7 12; do
        has_size "results/photo $number.jpg" "$((40 + number))x40"
    done
fi

# The parts of a run, each in a process of its own, give what one whole run gives.
"$vellora" render --out whole --filter Grey photos/*.jpg one/same.jpg one/same.jpg
for part in 1 2 3 4 5; do
    "$vellora" render --out parts --filter Grey --shard "$part/5" photos/*.jpg one/same.jpg \
        one/same.jpg &
done
wait
holds 14 whole
diff -r whole parts >stderr || fail "the parts differ from the whole"

# The same name from all sides at once: every photo has a result.
cp one/same.jpg two/same.jpg
for folder in one two one two one two one two; do
    "$vellora" render --out shared --quiet "$folder/same.jpg" 2>/dev/null &
done
wait
holds 8 shared
finish
