# One process locks, two others look at it meanwhile. Then the other one has the lock, and its record is changed
# under it, into another user's and into rubbish. Files tell whose turn it is.
wait_for() {
    while kill -0 $! && [ ! -e "$1" ]; do sleep 0.05; done
}
lock="pump-station/Pump Station.kqp.FLL"
cp "pump-station/01 Cover Sheet.dwg" pump-station/Read-only.dwg
chmod a-w pump-station/Read-only.dwg
timeout 60 drafta --profile profile --batch "$HERE/locks.lsp" > holder.txt &
wait_for locked
kqp lock-status "pump-station/Pump Station.kqp" | sed 's/, "holder.*//'
timeout 60 drafta --profile profile --batch "$HERE/locks.beside.lsp" > beside.txt &
wait_for confirmed
printf 'eve\nBOX Eve\n2026/11/21  12:00:00' | iconv -f UTF-8 -t UTF-16LE > "$lock"
: > "of another user"
wait_for known
echo rubbish > "$lock"
: > unreadable
wait
cat holder.txt
echo "--- the other process"
cat beside.txt
ls -A pump-station
