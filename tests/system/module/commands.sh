mkdir Temp
echo '(princ "from the script")' > Temp/myscript.scr
drafta --profile profile --drive C=. --answers answers --batch "$HERE/commands.lsp"
