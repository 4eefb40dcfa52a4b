# A signal that ends the program ends it in order: layout and settings are kept, the lock goes, nobody is asked. In
# each case the drawing has changes, which at the command QUIT would be asked about.
lock="pump-station/Pump Station.kqp.FLL"
wait_for() {
    for moment in $(seq 600); do
        [ -e "$1" ] && return
        sleep 0.05
    done
}
code_of() {
    wait "$1"
    echo "code $?, $(ls "$lock" 2> /dev/null || echo no lock), $(grep -c "value=\"$2\"" "$2/workspace.xml") layout"
    rm -f begun input
}
for case in "TERM LEFT" "HUP RIGHT" "TERM BOTTOM"; do
    set -- $case
    echo "--- console, $case"
    mkfifo input
    drafta --profile "$2" --console < input > /dev/null 2> errors.txt &
    exec 3> input
    DOCK=$2 && echo "(setq dock \"$DOCK\") (load \"$HERE/signals.lsp\")" >&3
    [ "$2" = BOTTOM ] && echo "(command \"SAVEAS\")" >&3
    wait_for begun
    kill -$1 $!
    code_of $! "$2"
    exec 3>&-
    cat errors.txt
done
echo "--- batch, LISP that never ends"
echo "(setq dock \"TOP\") (load \"$HERE/signals.lsp\") (while t) (princ \"not reached\")" > endless.lsp
drafta --profile TOP --batch endless.lsp > output.txt 2> errors.txt &
wait_for begun
kill -TERM $!
code_of $! TOP
cat output.txt errors.txt
echo "--- ignored from the start"
(trap '' HUP; exec drafta --profile ignored --batch endless.lsp > /dev/null 2>&1) &
wait_for begun
kill -HUP $!
sleep 0.3
kill -TERM $!
code_of $! TOP
