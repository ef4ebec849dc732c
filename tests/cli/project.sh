# Project files: made, shown, checked, rendered and written.
. "$(dirname "$0")/harness.sh"
convert -size 60x40 gradient:red-blue a.png
convert -size 60x40 gradient:white-green b.png
convert -size 10x10 xc:yellow clip.png

expect 0 project new a.png b.png -o empty.xml
silent
grep -q '<Image_Data id="1"' empty.xml || fail "no second photo"
expect 0 project check empty.xml
[ ! -s stdout ] || fail "an empty project has findings: $(cat stdout)"
expect 2 project new a.png -o empty.xml
says "exists already"
expect 0 project new a.png -o empty.xml --overwrite
expect 1 project new a.png missing.png b.png -o three.xml
says missing.png
grep -q '<Image_Data id="2"' three.xml || fail "a missing photo lost its place"
expect 1 project new a.png -o no/such/folder.xml
says "cannot be written"

# What the command line does to photos can be kept and done again.
expect 0 render --out direct --format png --filter 'Brightness Contrast=60,20' --crop 5,5,30,20 \
    --filter Inverse --clip clip.png@300,200,60,60 --save-project saved.xml a.png b.png
silent
expect 0 project check saved.xml
expect 0 render --out again --format png --project saved.xml a.png b.png
same_pictures direct/a.png again/a.png
same_pictures direct/b.png again/b.png
expect 0 render --out plain --format png a.png
[ "$(compare -metric AE direct/a.png plain/a.png null: 2>&1)" != 0 ] || fail "nothing was edited"
expect 0 render --out copy --format png --project saved.xml --save-project copy.xml a.png b.png
cmp -s saved.xml copy.xml || fail "a project that was loaded is saved differently"
expect 0 render --out more --format png --project saved.xml --filter Grey --save-project more.xml a.png
grep -q '"Grey"' more.xml || fail "an edit on top of the project was not saved"
grep -q '"Inverse"' more.xml || fail "an edit of the project was not saved"

expect 0 project show saved.xml
for line in 'photo 1: .*b.png' 'crop *5,5,30,20' 'filter *Brightness Contrast=60,20' \
    'filter *Inverse, after crop 1' "clip *'.*clip.png' at 300,200, 60 x 60"; do
    grep -q "$line" stdout || fail "project show lacks '$line'"
done
expect 0 project show --json saved.xml
json stdout "d['photos'][1]['filters'][0]['factors'] == [60, 20] and d['album'] == []"
json stdout "d['photos'][0]['crops'][0]['width'] == 30"
json stdout "d['photos'][0]['sprites'][0]['type'] == 'clip'"

cat >faulty.xml <<'END'
<ZEV_Photo_Info version="1.00">
    <Album_Data sprite_count="0"/>
    <Image_Data id="0" sprite_count="1" filter_count="2" crop_count="0">
        <Sprite_Data id="0" type="props"><props x0="0" y0="0" cx="1" cy="1">/none.emf</props></Sprite_Data>
        <Filter_Data id="0" type="Sepia"/>
        <Filter_Data id="1" type="Mist" factor_one="7" crop_step="0" FlipX="0" FlipY="0" Angle="0"/>
    </Image_Data>
</ZEV_Photo_Info>
END
expect 1 project check faulty.xml
for line in 'faulty.xml:4:42: art clip /none.emf is missing' 'faulty.xml:5:9: unknown filter "Sepia"' \
    'faulty.xml:6:9: factor_one of Mist is 7, its range is 20 to 100'; do
    grep -qF "$line" stdout || fail "project check lacks '$line': $(cat stdout)"
done
expect 0 render --out odd --project faulty.xml a.png
exists odd/a.jpg
printf '<ZEV_Photo_Info>\n  <Album_Data>\n</ZEV_Photo_Info>' >broken.xml
expect 2 project check broken.xml
grep -q 'broken.xml:3:' stdout || fail "no line of the fault: $(cat stdout)"
expect 2 project show broken.xml
says "line 3"
expect 2 render --out none --project broken.xml a.png
says "line 3"
[ ! -e none ] || fail "a refused command made its folder"
expect 2 project check missing.xml
expect 2 project
expect 2 project check
expect 1 render --out saved --save-project no/such/folder.xml a.png
says "cannot be written"
exists saved/a.jpg
expect 0 render --out . --project copy.xml --format png --overwrite a.png
# Nothing that was read is replaced, by whatever way it came in.
cp a.png original.png
cp clip.png clip-original.png
ln -s a.png linked.xml
for target in a.png ./a.png linked.xml clip.png; do
    expect 2 render --out none --save-project "$target" --clip clip.png@0,0 a.png
    says "never replaced"
done
expect 2 render --out none --project saved.xml --save-project clip.png a.png
says "never replaced"
expect 2 project new a.png -o a.png --overwrite
says "never replaced"
expect 0 render --out . --format png --overwrite --project saved.xml b.png clip.png
cmp -s a.png original.png || fail "a photo was replaced"
cmp -s clip.png clip-original.png || fail "a clip was replaced"
[ ! -e none ] || fail "a refused command made its folder"
cp saved.xml own.xml
expect 0 render --out own --project own.xml --save-project own.xml --format png a.png b.png
cmp -s saved.xml own.xml || fail "a project was not saved to itself"

# A pipe would keep the program waiting.
mkfifo pipe.xml pipe.png
expect 2 project show pipe.xml
says "is not a regular file"
expect 2 project check pipe.xml
grep -q "is not a regular file" stdout || fail "project check of a pipe: $(cat stdout)"
expect 2 render --out none --project pipe.xml a.png
says "is not a regular file"
expect 2 render --out none --clip pipe.png@0,0 a.png
says "is not a regular file"
[ -s copy.xml ] && grep -q ZEV_Photo_Info copy.xml || fail "the project was overwritten"
finish
