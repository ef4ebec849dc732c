# Slideshow files: made of photos, rendered with their edits, wherever the folder lies.
. "$(dirname "$0")/harness.sh"
mkdir "trip 1"
convert -size 60x40 gradient:red-blue "trip 1/a.jpg"
convert -size 40x60 gradient:white-green "trip 1/ü b.png"

expect 0 new "trip 1/a.jpg" "trip 1/ü b.png" -o "trip 1/my.vshow"
silent
json "trip 1/my.vshow" "[p['path'] for p in d['photos']] == ['a.jpg', 'ü b.png']"
json "trip 1/my.vshow" "d['project'] == 'my.xml'"
expect 2 new "trip 1/a.jpg" -o "trip 1/my.vshow"
says "exists already"
expect 2 new "trip 1/a.jpg" -o show.json
says "does not end in .vshow"
expect 1 new "trip 1/a.jpg" nowhere.jpg -o some.vshow
says nowhere.jpg
cp "trip 1/a.jpg" picture.vshow
expect 2 new picture.vshow -o ./picture.vshow --overwrite
says "never replaced"
cmp -s picture.vshow "trip 1/a.jpg" || fail "the photo was replaced"
expect 1 new "trip 1/a.jpg" -o no/folder.vshow

# No project yet: the show renders as its photos do.
expect 0 render --out plain --format png "trip 1/my.vshow"
silent
expect 0 render --out direct --format png "trip 1/a.jpg" "trip 1/ü b.png"
same_pictures plain/a.png direct/a.png
holds 2 plain

# With its project, and after the whole folder has moved.
expect 0 render --out edited --format png --filter Inverse --save-project "trip 1/my.xml" "trip 1/my.vshow"
mv "trip 1" moved
expect 0 render --out again --format png moved/my.vshow
same_pictures edited/a.png again/a.png
same_pictures "edited/ü b.png" "again/ü b.png"
expect 2 render --out none --project moved/my.xml moved/my.vshow
says "names its own"

# The show's own placement, and the command line over it.
edit_json moved/my.vshow turned.vshow "
del d['project']
for photo in d['photos']: photo['path'] = 'moved/' + photo['path']
d['photos'][0].update(rotation=90, flipX=True, background='#00ff00')"
expect 0 render --out turned --size 100x100 --fit inside turned.vshow
has_size turned/a.jpg 100x100
green="$(convert turned/a.jpg -format '%[fx:p{2,50}.g>0.95&&p{2,50}.r<0.05]' info:)"
[ "$green" = 1 ] || fail "the show's background is missing"
expect 0 render --out still --rotate 0 turned.vshow
has_size still/a.jpg 60x40

# What cannot be read is named; the rest is rendered.
edit_json turned.vshow gaps.vshow "d['photos'] += [{'path': 'gone.jpg'}, {'rotation': 45}]"
expect 1 render --out gaps gaps.vshow
says gone.jpg
says "photos[3]"
holds 2 gaps
printf '{\n "format": "vellora-show",\n oops' >bad.vshow
expect 1 render --out bad bad.vshow moved/a.jpg
says "line 3"
exists bad/a.jpg
printf '<a>\n</b>' >turned.xml
expect 1 render --out broken turned.vshow
says "line 2"
holds 2 broken
edit_json turned.vshow lost.vshow "d['project'] = 'lost.xml'"
expect 1 render --out lost lost.vshow
says "lost.xml: "
says "rendering without edits"
holds 2 lost
expect 2 render --out none --save-project ./turned.vshow turned.vshow
says "never replaced"
mkfifo pipe.xml
edit_json turned.vshow piped.vshow "d['project'] = 'pipe.xml'"
expect 1 render --out piped piped.vshow
says "pipe.xml: is not a regular file"
expect 1 render --out bad missing.vshow
finish
