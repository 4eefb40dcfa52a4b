drafta --profile profile --batch "$HERE/settings_block.lsp"
find pump-station -newer answers -type f | sort
