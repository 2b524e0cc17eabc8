#!/usr/bin/env bash
# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
#
# Drives the real program on a virtual display with real key and mouse events, as a new user would, and leaves
# pictures: scripts/tour.sh PROGRAM_FOLDER PICTURES. Fails when the program doesn't do what the tour expects.
# The folder is copied, so that the user's database and language stay as they are. Instead of the folder it may be
# the launcher of an installed program, which lays out a folder of its own.
set -euo pipefail
source_folder=$(realpath "$1")
mkdir -p "$2"
pictures=$(cd "$2" && pwd)

work=$(mktemp -d)
cleanup() {
    [ -n "${program:-}" ] && kill "$program" 2>/dev/null || true
    [ -n "${manager:-}" ] && kill "$manager" 2>/dev/null || true
    [ -n "${server:-}" ] && kill "$server" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

fail() {
    import -window root "$pictures/failure.png" 2>/dev/null || true
    cat "$work"/*.log >&2 2>/dev/null || true
    echo "tour: $*" >&2
    exit 1
}
# Waits until a command succeeds, ten seconds at most.
wait_for() {
    local what=$1 i
    shift
    for ((i = 0; i < 100; i++)); do
        "$@" >/dev/null 2>&1 && return 0
        sleep 0.1
    done
    fail "waited in vain for $what"
}
window() { xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1 | grep .; }
active_is() { [ "$(xdotool getactivewindow getwindowname 2>/dev/null)" = "$1" ]; }
# The active window, or the whole screen with the second argument "root".
picture() {
    # The screen has to be at rest: two pictures in a row that are alike.
    local previous="" now i
    for ((i = 0; i < 30; i++)); do
        import -window "${2:-$(xdotool getactivewindow)}" "$work/shot.png"
        now=$(md5sum <"$work/shot.png")
        [ "$now" = "$previous" ] && break
        previous=$now
        sleep 0.1
    done
    mv "$work/shot.png" "$pictures/$1.png"
}
keys() { xdotool key --clearmodifiers --delay 60 "$@"; }

# A display of our own, with a window manager that gives windows the focus.
Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp -noreset 3>"$work/display" 2>"$work/xvfb.log" &
server=$!
wait_for "the virtual display" test -s "$work/display"
DISPLAY=:$(cat "$work/display")
export DISPLAY
unset WAYLAND_DISPLAY QT_QPA_PLATFORM QT_QPA_PLATFORMTHEME
export LC_ALL=C.UTF-8 XDG_RUNTIME_DIR="$work" HOME="$work"
openbox >"$work/openbox.log" 2>&1 &
manager=$!
# It answers what the desktop is only once it is there: windows mapped before it would get no focus.
wait_for "the window manager" xdotool get_desktop

tour() {
    local language=$1 entry=$2 word=$3 search=$4
    local folder="$work/$language Vemöra"
    if [ -d "$source_folder" ]; then
        cp -r "$source_folder" "$folder"
        rm -f "$folder/bin/lang.ini"
        start=$folder/vemora
    else
        export XDG_DATA_HOME="$work/$language data"
        folder=$XDG_DATA_HOME/vemora
        start=$source_folder
    fi

    "$start" >"$work/$language.log" 2>&1 &
    program=$!

    # The first start asks for the language; the choice is a click in the list.
    wait_for "the choice of a language" window "Select language"
    wait_for "its focus" active_is "Select language/ Välj språk"
    [ "$language" = Svenska ] && picture 0-language
    choose_language "$folder" "$entry"
    keys Return

    wait_for "the main window" window "$word"
    xdotool type --delay 20 "$search"
    keys Return
    wait_for "the hits" settled
    picture "$language-1-search"

    # Enter on the first hit opens its sheet.
    keys Return
    wait_for "the sheet" two_windows "$word"
    picture "$language-2-sheet"

    # The report goes to the clipboard and a box tells it.
    keys ctrl+c
    wait_for "the message" window '^Vemora$'
    picture "$language-3-copied" root
    xclip -selection clipboard -o >"$work/report.txt" || fail "there is nothing on the clipboard"
    grep -q $'\t' "$work/report.txt" || fail "the report holds no table"
    keys Return
    wait_for "the sheet again" two_windows "$word"

    # Narrow it to one temperature, then by a click on a heading; Esc closes the sheet.
    keys Tab Down
    picture "$language-4-narrowed"
    keys Tab Escape
    wait_for "the sheet's end" one_window "$word"

    # A double click on another hit opens its sheet as well.
    main=$(window "$word")
    eval "$(xdotool getwindowgeometry --shell "$main")"
    xdotool mousemove $((X + WIDTH / 2)) $((Y + HEIGHT / 2)) click --repeat 2 --delay 80 1
    wait_for "the sheet by double click" two_windows "$word"
    keys Tab Tab Escape
    wait_for "its end" one_window "$word"

    keep "$language" "$word"

    keys alt+F4
    wait_for "the program's end" ended
    wait "$program" || fail "the program ended with status $?"
    program=
    # What is the user's stays when the program is started again.
    [ -d "$source_folder" ] || keeps_what_is_the_users "$folder"
    [ ! -e "$folder/Vemora.mdb-wal" ] || fail "the database was not closed in order"
    [ -s "$work/$language.log" ] && fail "the program complained: $(cat "$work/$language.log")"
    return 0
}
# Opens each window that keeps records, by its letters in the menu, and closes it with Esc.
open_from_menu() {
    keys "alt+$1" "$2"
    wait_for "the window $3" active_is "$3"
}
keep() {
    local language=$1 word=$2 menu entries entry letter title main_title name
    main_title=$(xdotool getwindowname "$(window "$word")")
    case "$language" in
        Svenska) menu=u entries="n=Koncentrationer t=Temperatur m=Metall p=Plast g=Tätning r=Övrigt" ;;
        English) menu=m entries="n=Concentrations t=Temperature m=Metal p=Plastic s=Seal o=Other" ;;
    esac
    for entry in $entries; do
        letter=${entry%%=*} title=${entry#*=}
        open_from_menu "$menu" "$letter" "$title"
        keys Down Down
        picture "$language-5-${title/ä/a}"
        keys Escape
        wait_for "the end of $title" active_is "$main_title"
    done

    # The menu behind it: the update, and what the program is.
    case "$language" in
        Svenska) open_from_menu h u "Uppdatera databasen" && title="Om Vemora" ;;
        English) open_from_menu h u "Update the database" && title="About Vemora" ;;
    esac
    picture "$language-6-update"
    keys Escape
    wait_for "the end of the update" active_is "$main_title"
    keys alt+h Up Return
    wait_for "the about box" active_is "$title"
    picture "$language-6-about"
    keys Return
    wait_for "the end of the about box" active_is "$main_title"

    # A chemical of one's own: its formula and its names are typed, and the search finds it.
    local chemicals resistance settings close own bath
    case "$language" in
        Svenska)
            chemicals="k Kemikalier" resistance="b Beständighet – Metall" settings="i Urval: Koncentration"
            close=alt+g own=egen bath=betb
            ;;
        English)
            chemicals="c Chemicals" resistance="r Resistance – Metal" settings="e Selection: Concentration"
            close=alt+o own=own bath=pickl
            ;;
    esac
    open_from_menu "$menu" "${chemicals%% *}" "${chemicals#* }"
    keys alt+n
    xdotool type --delay 40 "HSO4-"
    for name in betbad "Pickling bath" Beizbad; do
        keys Tab
        xdotool type --delay 20 "$name"
    done
    picture "$language-6-new"
    keys alt+s
    wait_for "the list again" settled
    picture "$language-6-chemicals"
    keys Escape
    wait_for "the end of the chemicals" active_is "$main_title"
    keys shift+Tab shift+Tab shift+Tab
    xdotool type --delay 20 "pickling"
    keys Return
    wait_for "the hits" settled
    picture "$language-7-own"

    # A verdict of one's own for it: what is chosen is chosen by keys alone.
    open_from_menu "$menu" "${resistance%% *}" "${resistance#* }"
    xdotool type --delay 40 "$bath"
    keys Tab Tab Down Down Tab Down Tab Tab Down Tab Down
    picture "$language-8-chosen"
    keys alt+s
    picture "$language-8-resistance"
    keys "$close"
    wait_for "the end of the resistance" active_is "$main_title"
    keys shift+Tab shift+Tab shift+Tab Tab Tab Tab Return
    wait_for "the sheet" two_windows "$word"
    keys ctrl+c
    wait_for "the message" window '^Vemora$'
    xclip -selection clipboard -o | grep -q "$own" || fail "the verdict is not on the sheet"
    keys Return
    wait_for "the sheet again" two_windows "$word"
    keys "$close"
    wait_for "the sheet's end" active_is "$main_title"

    # What takes part: the next page, its first row, and the save.
    open_from_menu "$menu" "${settings%% *}" "${settings#* }"
    keys ctrl+Next Tab Down space
    picture "$language-9-settings"
    keys alt+o
    wait_for "the end of the settings" active_is "$main_title"
}
keeps_what_is_the_users() {
    local before
    before=$(cat "$1/Vemora.mdb" "$1/bin/lang.ini" | md5sum)
    echo "old" >"$1/pages/manual-en.html"
    rm "$1/pages/pictures/en-sheet.png"
    "$start" >"$work/again.log" 2>&1 &
    program=$!
    wait_for "the main window again" window Vemora
    [ "$before" = "$(cat "$1/Vemora.mdb" "$1/bin/lang.ini" | md5sum)" ] || fail "the user's files have changed"
    grep -q "</html>" "$1/pages/manual-en.html" || fail "the pages have not been renewed"
    [ -s "$1/pages/pictures/en-sheet.png" ] || fail "the pages' pictures have not been renewed"
    kill "$program"
    wait "$program" 2>/dev/null || true
    program=
    rm -f "$1/Vemora.mdb-wal"
}
settled() { sleep 0.3; }
main=
ended() { ! kill -0 "$program"; }
two_windows() { [ "$(xdotool search --onlyvisible --name "$1" | wc -l)" -ge 2 ] && ! window '^Vemora$'; }
one_window() { [ "$(xdotool search --onlyvisible --name "$1" | wc -l)" -eq 1 ]; }
# Steps down the list until the wanted language's file is the active one.
choose_language() {
    local i
    for ((i = 0; i < 6; i++)); do
        keys Down
        sleep 0.2
        grep -qaE "^lang *= *$2" "$1/bin/lang.ini" 2>/dev/null && return 0
        [ "$i" -eq 2 ] && keys Home && sleep 0.2 &&
            grep -qaE "^lang *= *$2" "$1/bin/lang.ini" 2>/dev/null && return 0
    done
    fail "the language $2 can't be chosen"
}

tour Svenska Svenska Vemora aceton
tour English English Vemora acetone
echo "tour: passed"
