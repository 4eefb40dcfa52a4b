drafta --profile profile --module "$LIBRARIES/RyvPageMan.so" --module "$LIBRARIES/sibling_module.so" \
    --log-events --batch "$HERE/reactors.lsp"
