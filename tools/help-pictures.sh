#!/usr/bin/env bash
# Takes the pictures of assets/Help.htm anew from dist/win64, under Wine, and puts them into the page: a screen
# picture where it says <img id="shot-NAME" ...>, a picture of a toolbar where it says <img id="pic-NAME" ...>. The
# main window is also what the README shows (docs/kestrum2.png).
#   tools/help-pictures.sh [--buttons]      the pictures of the toolbars only
# Takes about two minutes, most of it for the graphs to fill. Leaves copies in build/help.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=tools/wine-bed.sh
source tools/wine-bed.sh

page=assets/Help.htm
out=$PWD/build/help
# Internet Explorer 8 shows no picture whose text in the page is longer than 32 KB.
most_bytes=24000
rm -rf "$out"
mkdir -p "$out"

# ---- pictures ----

# Makes a small PNG of few colours from the PNG $1, as build/help/$2.png; as many colours as fit into the limit.
# What is transparent stays so. Old browsers show such a picture, too.
finish() {
    local colors
    for colors in 160 96 64 40 24; do
        convert "$1" +dither -colors "$colors" -strip -define png:exclude-chunks=date,time \
            -define png:compression-level=9 PNG8:"$out/$2.png"
        (($(stat -c %s "$out/$2.png") <= most_bytes)) && return
    done
    echo "$2: larger than $most_bytes bytes" >&2
    return 1
}

# The pictures of a toolbar: FILE SIZE NAME... White is what the toolbar leaves out.
buttons() {
    local file=$1 size=$2 x=0 name
    shift 2
    for name in "$@"; do
        convert "$file" -crop "${size}x$size+$x+0" +repage -transparent white "$out/pic.png"
        finish "$out/pic.png" "pic-$name"
        x=$((x + size))
    done
}

# Puts everything from build/help into the page. An image of the page without a file, or the other way round, is an
# error when all pictures have been taken.
put_into_page() {
    python3 - "$page" "$out" "$1" <<'END'
import base64, os, re, struct, sys
page, folder, everything = sys.argv[1:]
text = open(page, encoding="utf-8", newline="").read()
files = {n[:-4] for n in os.listdir(folder) if n.startswith(("shot-", "pic-"))}
images = set(re.findall(r'<img id="((?:shot|pic)-[\w-]+)"', text))
if files - images or (everything == "all" and images - files):
    sys.exit(f"{page} and the pictures disagree: {sorted(files ^ images)}")
for name in files:
    data = open(f"{folder}/{name}.png", "rb").read()
    width, height = struct.unpack(">II", data[16:24])
    source = "data:image/png;base64," + base64.b64encode(data).decode()
    text = re.sub(rf'(<img id="{name}") width="\d+" height="\d+"([^>]*) src="[^"]*"',
                  lambda m: f'{m[1]} width="{width}" height="{height}"{m[2]} src="{source}"', text)
with open(page + ".new", "w", encoding="utf-8", newline="") as file:
    file.write(text)
os.replace(page + ".new", page)
print(f"{page}: {len(text) // 1024} KB, {len(files)} pictures")
END
}

# ---- windows on the screen ----

fail() {
    echo "help-pictures: $1" >&2
    import -window root "$out/failed.png" 2>/dev/null || true
    exit 1
}

# A line "ID X Y WIDTH HEIGHT NAME" for each window on the screen. What is reported is the place within the desktop
# and the place on the screen added up; as the desktop is the whole screen, that is twice the place.
windows() {
    local id name WINDOW X Y WIDTH HEIGHT
    for id in $(xdotool search --onlyvisible --name '' 2>/dev/null); do
        WINDOW=''
        eval "$(xdotool getwindowgeometry --shell "$id" 2>/dev/null | grep -v SCREEN)"  # gone meanwhile: nothing
        [[ -n $WINDOW ]] || continue
        name=$(xdotool getwindowname "$id" 2>/dev/null) || continue
        echo "$id $((X / 2)) $((Y / 2)) $WIDTH $HEIGHT $name"
    done
}

# Takes down the windows there are; what `new_window` then finds is none of them.
note_windows() { windows | cut -d' ' -f1 >"$out/known"; }

# Succeeds when a window has come since; sets window and the rectangle box: "X Y WIDTH HEIGHT".
see_new_window() {
    local line
    line=$(windows | grep -v -w -F -f "$out/known" | tail -n 1) || return 1
    read -r window x y width height _ <<<"$line"
    box="$x $y $width $height"
}
new_window() { bed_wait_for 20 see_new_window || fail "$1 did not come"; }
gone() { ! windows | grep -q "^$window "; }

# Does something (a click) until a window has come of it: what comes before the program listens is lost.
opens() {
    local what=$1 tries
    shift
    note_windows
    for tries in 1 2 3 4 5; do
        "$@"
        bed_wait_for 4 see_new_window && return
    done
    fail "$what did not come"
}

# Closes what was opened last with the Escape key.
escape() {
    local tries
    for tries in 1 2 3 4 5; do
        xdotool key Escape
        bed_wait_for 3 gone && return
    done
    fail "a window did not close"
}

# Where the pointer hovers over nothing.
park() { xdotool mousemove 640 720; }

# Clicks at X Y of the screen with BUTTON.
click() { xdotool mousemove "$1" "$2" sleep 0.1 click "$3"; }

# Grabs a rectangle ("X Y WIDTH HEIGHT") into a file; again until it is the same twice, so that everything is painted.
grab() {
    local file=$1 x y width height before='' now tries
    read -r x y width height <<<"$2"
    for tries in {1..25}; do
        import -window root -crop "${width}x$height+$x+$y" +repage "$file"
        now=$(convert "$file" rgb:- | cksum)
        [[ $now == "$before" && $(identify -format %k "$file") -gt 3 ]] && return
        before=$now
        sleep 0.1
    done
}

# A picture of rectangles of the screen ("X Y WIDTH HEIGHT" each) as they lie, with nothing between them.
shot() {
    local name=$1 rect left=9999 top=9999 right=0 bottom=0 x y width height parts=()
    shift
    for rect in "$@"; do
        read -r x y width height <<<"$rect"
        ((x < left)) && left=$x
        ((y < top)) && top=$y
        ((x + width > right)) && right=$((x + width))
        ((y + height > bottom)) && bottom=$((y + height))
    done
    for rect in "$@"; do
        read -r x y width height <<<"$rect"
        grab "$out/part-$x-$y.png" "$rect"
        parts+=("(" "$out/part-$x-$y.png" -repage "+$((x - left))+$((y - top))" ")")
    done
    convert -size "$((right - left))x$((bottom - top))" xc:none -background none "${parts[@]}" -layers flatten \
        "$out/shot.png"
    finish "$out/shot.png" "shot-$name"
}

# ---- the program's windows ----

# Middle of a button of the toolbar, of one of the small toolbar, of a row of the lists; from the corner of the main
# window, which stands where the settings say.
main_x=20 main_y=20 main_width=820 main_height=360
button() {
    local gaps=0 after
    for after in 0 2 5 7 9; do (($1 > after)) && gaps=$((gaps + 1)); done
    at="$((main_x + 21 + 30 * $1 + 8 * gaps)) $((main_y + 38))"
}
small_button() { at="$((main_x + 21 + 22 * $1)) $((main_y + 69))"; }
process_row() { at="$((main_x + 60)) $((main_y + 114 + 17 * $1))"; }
favorite_row() { at="$((main_x + 540)) $((main_y + 114 + 17 * $1))"; }
# shellcheck disable=SC2086
click_at() { click $at "$1"; }

setting() { wine reg add 'HKCU\Software\Morvell\Kestrum2' /v "$1" /d "$2" /f >/dev/null 2>&1; }

main_shown() { xdotool search --onlyvisible --name '^Kestrum 2$' >/dev/null 2>&1; }

# Programs of friendly names. One of them works, now more, now less, as long as it runs: see `load`.
start_programs() {
    local name
    for name in Editor Player Mail Backup; do
        cp build/win64/tests/desktop/Target.exe "$folder/$name.exe"
        wine "C:\\Kestrum2\\$name.exe" 600 >/dev/null 2>&1 &
    done
    cp "$WINEPREFIX/drive_c/windows/system32/cmd.exe" "$folder/Render.exe"
    wine 'C:\Kestrum2\Render.exe' /c 'for /L %i in (1,1,100000000) do @rem' >/dev/null 2>&1 &
    render=$!
    bed_wait_for 30 targets_shown || fail "the programs did not start"
    # Out of the way of what is taken.
    local window row=0
    for window in $(xdotool search --name '^Target [0-9]*$'); do
        xdotool windowmove "$window" 1030 $((20 + 60 * row))
        row=$((row + 1))
    done
}
targets_shown() { (($(xdotool search --name '^Target [0-9]*$' 2>/dev/null | wc -l) == 4)); }

# Lets the process run so many percent of the time, in turn, until it is gone.
load() {
    local percent i
    while true; do
        for percent in 20 45 90 70 95 99 60 25 10 35 80 55; do
            for i in {1..20}; do  # of a fifth of a second
                kill -CONT "$1" || return 0
                sleep "0.$(printf %03d $((percent * 2)))"
                kill -STOP "$1" || return 0
                sleep "0.$(printf %03d $((200 - percent * 2)))"
            done
        done
    done 2>/dev/null
}

write_files() {
    mkdir "$folder"
    cp dist/win64/{Kestrum2.exe,Kestrum_Jr.exe,Help.htm} "$folder"
    local header='[Kestrum 2 - Morvell Software 2010]' at='C:\Kestrum2\'
    printf '%s\r\n' "$header" "Backup.exe	0	Low	${at}Backup.exe	" "Editor.exe	01	Default	${at}Editor.exe	notes.txt" \
        "Player.exe	1	Above	${at}Player.exe	" "Render.exe	01	Below	${at}Render.exe	" >"$folder/My Favs 1"
    printf '%s\r\n' "$header" "Player.exe	01	High	${at}Player.exe	" >"$folder/My Favs 2"
    printf '%s\r\n' Plugplay.exe Rpcss.exe Winedevice.exe >"$folder/FileFilter"
}

start_main() {
    setting Form1_Pos "$main_x,$main_y,$main_width,$main_height"
    # As wide as the page, with no text cut off.
    setting Splitter 418
    setting FileColWide 120,60,60,44,54,70,
    setting FavColWide 110,56,60,95,62,
    setting FrmColorMeter_Pos 920,240,102,102
    setting GraphTop1 400
    setting GraphLeft1 920
    setting AutoSet 1
    setting TtlOnStart 1
    wine 'C:\Kestrum2\Kestrum2.exe' >/dev/null 2>&1 &
    bed_wait_for 30 main_shown || fail "the main window did not come"
    # The list is there when Auto Set has done its work.
    wine build/win64/tests/desktop/proclist.exe --wait Player.exe --affinity 0x2 --class 32768 --timeout 20 \
        >/dev/null 2>&1 || fail "Auto Set did nothing"
    # The options are to be seen as they are at first.
    wine reg delete 'HKCU\Software\Morvell\Kestrum2' /v AutoSet /f >/dev/null 2>&1
    wine reg delete 'HKCU\Software\Morvell\Kestrum2' /v TtlOnStart /f >/dev/null 2>&1
}

# ---- one picture after the other ----

# Succeeds when nobody else keeps the processors busy: Render works, and leaves half of two unused.
quiet() {
    local before after
    before=$(idle_time)
    sleep 1
    after=$(idle_time)
    ((after - before > 35 * $(nproc)))
}
idle_time() { awk '/^cpu / {print $5 + $6}' /proc/stat; }  # in hundredths of a second

open_graph() {
    process_row 6  # Render
    click_at 1
    small_button 5
    opens "the CPU graph" click_at 1
    graph=$box
}

take_main() {
    process_row 5  # Player
    click_at 1
    park
    shot main "$main_x $main_y $main_width $main_height"
}

take_menus() {
    process_row 5
    opens "the process menu" click_at 3
    park
    shot processmenu "$box"
    escape
    button 8
    opens "the profile menu" click_at 1
    park
    shot profiles "$box"
    escape
}

take_favorites() {
    local menu menu_window
    favorite_row 2  # Player
    click_at 1
    opens "the favorites menu" click_at 3
    menu=$box menu_window=$window
    opens "the menu of profiles" hover_item "$menu" 45
    shot favmenu "$menu" "$box"
    escape
    window=$menu_window
    escape
    favorite_row 2
    opens "the favorites menu" click_at 3
    note_windows
    hover_item "$box" 12
    xdotool click 1
    new_window "the favorite settings"
    park
    shot favsettings "$box"
    escape
    button 4
    opens "the question" click_at 1
    park
    shot msgbox "$box"
    escape
}

# Moves the pointer to an entry of the menu with this rectangle, so many pixels below its upper edge.
hover_item() {
    local x y width height
    read -r x y width height <<<"$1"
    xdotool mousemove $((x + 60)) $((y + $2)) mousemove_relative 1 0
}

take_dialogs() {
    local name
    small_button 2
    opens "the filter dialog" click_at 1
    park
    shot filter "$box"
    escape
    button 2
    opens "the options" click_at 1
    park
    for name in optmisc optgraphs optstart; do
        shot $name "$box"
        xdotool key ctrl+Next
    done
    escape
}

# A graph holds a minute, so that a minute has to pass before it is full.
take_graphs() {
    local x y width height
    while ((SECONDS < graph_since + 64)); do sleep 0.5; done
    read -r x y width height <<<"$graph"
    grab "$out/graph.png" "$graph"
    opens "the menu of the graph" click $((x + 50)) $((y + 60)) 3
    park
    grab "$out/menu.png" "$box"
    beside "$out/graph.png" "$out/menu.png" graph
    escape
    read -r x y width height <<<"$total"
    shot totalbars "$total"
    opens "the menu of the total graph" click $((x + 50)) $((y + 60)) 3
    park
    shot totalmenu "$box"
    hover_item "$box" 30
    xdotool click 1
    bed_wait_for 10 gone || fail "the menu of the total graph did not go"
    park
    shot totalavg "$total"
}

# Two pictures side by side.
beside() {
    convert "$1" "$2" -background none -gravity North +smush 14 "$out/shot.png"
    finish "$out/shot.png" "shot-$3"
}

tray_icon() { (($(import -window root -crop 18x18+1261+781 +repage png:- | identify -format %k png:-) > 1)); }

# The icon in the notification area at the end of the task bar, and above it its menu, which covers it when it is open.
take_tray() {
    bed_wait_for 20 tray_icon || fail "no icon in the notification area"
    park
    grab "$out/icon.png" "1256 780 24 20"
    opens "the menu of the icon" click 1271 790 3
    park
    grab "$out/menu.png" "$box"
    convert "$out/menu.png" "$out/icon.png" -background none -gravity East -append "$out/shot.png"
    finish "$out/shot.png" "shot-$1"
}

take_jr() {
    hover_item "$box" $(($(cut -d' ' -f4 <<<"$box") - 12))  # "Exit"
    xdotool click 1
    bed_wait_for 20 main_gone || fail "the program did not end"
    bed_wait_for 20 eval '! tray_icon' || fail "the icon stayed"
    wine 'C:\Kestrum2\Kestrum_Jr.exe' /My Favs 1 >/dev/null 2>&1 &
    take_tray jrmenu
}
main_gone() { ! main_shown; }

# ---- everything ----

buttons assets/toolbar.bmp 24 apply filter options browse remove setnow autoset enforce profiles jr help ontop
buttons assets/toolbar2.bmp 16 addfav addfilter filterdialog extensions tooltips graph end
if [[ ${1:-} == --buttons ]]; then
    put_into_page some
    exit
fi

for file in dist/win64/Kestrum2.exe dist/win64/Kestrum_Jr.exe build/win64/tests/desktop/Target.exe; do
    [[ -f $file ]] || { echo "not built: $file" >&2; exit 1; }
done
bed_start help
folder=$WINEPREFIX/drive_c/Kestrum2
write_files
start_programs
start_main
bed_wait_for 300 quiet || echo "the machine is busy, and the pictures show it" >&2
open_graph
graph_since=$SECONDS
total='920 240 102 102'
load "$render" &
take_main
take_menus
take_favorites
take_dialogs
take_graphs
take_tray tray
take_jr
put_into_page all
cp "$out/shot-main.png" docs/kestrum2.png
