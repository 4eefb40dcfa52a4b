# Modules that are no modules end the program with one line, and the palettes are where they would have been.
failing() {
    drafta --profile failed "$@" --console < /dev/null || echo "code $?"
}
for module in missing.so . "pump-station/Pump Station.kqp" "$LIBRARIES/libforeign_library.so"; do
    failing --module "$module"
done
failing --module "$LIBRARIES/RyvPageMan.so" --module "$LIBRARIES/RyvPageMan.so"
drafta --profile failed --batch "$HERE/place.lsp"
echo "--- loaded and unloaded by commands"
drafta --profile profile --no-module --batch "$HERE/modules.none.lsp"
timeout 60 sh -c 'echo $$ > id; exec drafta --profile profile --batch "$HERE/modules.lsp"' > commands.txt &
for moment in loaded unloaded "loaded again"; do
    while kill -0 $! && [ ! -e "$moment" ]; do sleep 0.05; done
    grep -q RyvPageMan.so "/proc/$(cat id)/maps" && echo "$moment: in the process" || echo "$moment: not in the process"
    : > "$moment.seen"
done
wait
cat commands.txt
echo "--- with another module"
drafta --profile profile --module "$LIBRARIES/RyvPageMan.so" --module "$LIBRARIES/sibling_module.so" --console <<END
UNLOADMODULE sibling_module.so
SIBLINGSTATES
SAVEAS Elsewhere.dwg
UNLOADMODULE RyvPageMan.so
LOADMODULE "$LIBRARIES/sibling_module.so"
SIBLINGSTATES
LOADMODULE "$LIBRARIES/RyvPageMan.so"
UNLOADMODULE RyvPageMan.so
SIBLINGSTATES
(boundp 'ryv_openproject)
END
