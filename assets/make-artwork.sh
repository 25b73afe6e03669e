#!/bin/sh
# Makes the program's bitmaps and icons from svg/. The results are committed: run this after changing a drawing.
# Needs rsvg-convert (librsvg2-bin), convert (imagemagick) and python3.
set -eu
cd "$(dirname "$0")"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# render SOURCE SIZE: draws svg/SOURCE.svg, or one made below, at SIZE pixels.
render() {
    drawing=svg/$1.svg
    [ -f "$drawing" ] || drawing=$work/$1.svg
    rsvg-convert -w "$2" -h "$2" "$drawing" -o "$work/$1-$2.png"
}

# masked SOURCE SIZE GROUND: the picture for copying with white left out. What is transparent becomes white, soft
# edges are mixed with GROUND (the colour the picture will stand on), and white inside the drawing is spared.
masked() {
    render "$1" "$2"
    convert "$work/$1-$2.png" \( +clone -alpha extract -threshold 12% -negate +write "$work/outside.png" +delete \) \
        -background "$3" -flatten -fill 'rgb(254,254,254)' -opaque white \
        \( "$work/outside.png" -background white -alpha copy -fill white -colorize 100 \) -composite \
        "$work/$1.png"
}

# strip RESULT SIZE GROUND SOURCE...: a bitmap of pictures side by side.
strip() {
    result=$1 size=$2 ground=$3
    shift 3
    pictures=
    for source in "$@"; do
        masked "$source" "$size" "$ground"
        pictures="$pictures $work/$source.png"
    done
    # shellcheck disable=SC2086
    convert $pictures +append -alpha off -type TrueColor -strip BMP3:"$result"
}

# icon RESULT SOURCE:SIZE...: an icon of these pictures.
icon() {
    result=$1
    shift
    pictures=
    for image in "$@"; do
        render "${image%:*}" "${image#*:}"
        picture=$work/${image%:*}-${image#*:}-icon.png
        convert "$work/${image%:*}-${image#*:}.png" -strip -define png:exclude-chunks=date,time \
            -define png:color-type=6 -define png:compression-level=9 "$picture"
        pictures="$pictures $picture"
    done
    # shellcheck disable=SC2086
    ./make-icon.py "$result" $pictures
}

# digits RESULT SOURCE: a bitmap of pure black and white from SOURCE, where a '#' is a black square of 2 x 2 pixels.
# The shell halves the picture where it shows small icons: only drawn with such squares it stays sharp.
digits() {
    {
        echo P1
        awk 'END { print length($0), NR }' "$2"
        sed 's/[^#]/0/g; s/#/1/g' "$2"
    } | convert pbm:- -sample 200% -type TrueColor -strip BMP3:"$1"
}

# Kestrum Jr. has the same falcon on green, so that the two are told apart in the notification area, and on the
# toolbar.
for size in 16 20 24 48; do
    sed 's/#3F7FB5/#4FA55C/; s/#173F66/#1C5A2C/; s/#0F2C49/#10391B/; s/#8FC0E6/#A5DDAE/' "svg/kestrum$size.svg" \
        >"$work/kestrum_jr$size.svg"
done
sed 's/viewBox="0 0 20 20"/viewBox="-2 -2 24 24"/' "$work/kestrum_jr20.svg" >"$work/tool09-jr.svg"

face='#F0F0F0'  # button face
strip toolbar.bmp 24 "$face" tool00-apply tool01-filter tool02-options tool03-browse tool04-remove tool05-setnow \
    tool06-autoset tool07-enforce tool08-profiles tool09-jr tool10-help tool11-ontop
strip toolbar2.bmp 16 "$face" list0-addfav list1-addfilter list2-filterdialog list3-extensions list4-tooltips \
    list5-graph list6-end
strip msgicons.bmp 32 '#B0B0B0' msg0-info msg1-question
strip menu.bmp 13 "$face" menu0-setnow menu1-autoset menu2-options menu3-graphs menu4-exit menu5-addfav \
    menu6-addfilter menu7-filterdialog menu8-extensions menu9-tooltips menu3-graphs menu11-end
# The slices of push buttons: magenta outside, soft corners mixed with the face.
rsvg-convert svg/button-slices.svg -o "$work/slices.png"
convert "$work/slices.png" -background "$face" -flatten \
    \( "$work/slices.png" -alpha extract -threshold 12% -negate -background magenta -alpha shape \) \
    -composite -alpha off -type TrueColor -strip BMP3:buttons.bmp
# The digits 0 to 9 in cells of 16 x 32 pixels, then "100" of 32 x 32 at x = 158: two pixels inside the cell of the
# 9, so the last column of squares in that cell is the first one of "100".
digits digits_large.bmp digits_large.txt
digits digits_small.bmp digits_small.txt
# In the drawing for 48 every edge lies on whole pixels at 32, 64, 128 and 256 as well.
icon kestrum2.ico kestrum16:16 kestrum20:20 kestrum24:24 kestrum48:32 kestrum48:48 kestrum48:64 kestrum48:128 \
    kestrum48:256
# The sizes of the notification area and of the desktop: the program is to stay small.
icon kestrum_jr.ico kestrum_jr16:16 kestrum_jr20:20 kestrum_jr24:24 kestrum_jr48:32 kestrum_jr48:48
icon defaulticon.ico defaulticon16:16 defaulticon32:32
icon filter.ico filtericon16:16

# The side of the installer's last page: the falcon on a board.
render kestrum48 96
rsvg-convert svg/setup.svg -o "$work/setup.png"
convert "$work/setup.png" "$work/kestrum48-96.png" -geometry +34+48 -composite -alpha off -type TrueColor -strip \
    BMP3:setup.bmp

# The help page carries its pictures inside: <img id="SOURCE" width="SIZE" ... src="...">.
for image in kestrum48:48 tool03-browse:24 tool04-remove:24 tool05-setnow:24 tool06-autoset:24 tool07-enforce:24 \
    tool10-help:24 tool11-ontop:24; do
    render "${image%:*}" "${image#*:}"
    convert "$work/${image%:*}-${image#*:}.png" -strip -define png:exclude-chunks=date,time "$work/help.png"
    data=$(base64 -w 0 "$work/help.png")
    sed -i "s|\(<img id=\"${image%:*}\"[^>]* src=\"\)[^\"]*\"|\1data:image/png;base64,$data\"|" Help.htm
done
