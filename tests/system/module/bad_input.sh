contents() { find pump-station -type f -exec cksum {} + | sort; }
before=$(contents)
drafta --profile profile --batch "$HERE/bad_input.lsp"
[ "$before" = "$(contents)" ] && echo "nothing has changed"
ls . profile
