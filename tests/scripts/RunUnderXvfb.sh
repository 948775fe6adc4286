#!/bin/sh
# Runs a command on a private virtual display of the given size:
#   RunUnderXvfb.sh 1024x768 command [args...]
# The server picks a free display number itself (-displayfd), so runs started
# at the same time never race for one.
size=$1
shift
dir=$(mktemp -d) || exit 1
Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp 3>"$dir/display" 2>"$dir/log" &
server=$!
tries=0
until [ -s "$dir/display" ]; do
    tries=$((tries + 1))
    if [ $tries -gt 200 ] || ! kill -0 $server 2>/dev/null; then
        echo "Xvfb did not start:" >&2
        cat "$dir/log" >&2
        kill $server 2>/dev/null
        rm -rf "$dir"
        exit 1
    fi
    sleep 0.05
done
DISPLAY=":$(head -n 1 "$dir/display")" "$@"
status=$?
kill $server
wait $server 2>/dev/null
rm -rf "$dir"
exit $status
