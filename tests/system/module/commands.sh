mkdir Temp
echo '(princ "from the script")' > Temp/myscript.scr
product=$(dirname "$LIBRARIES")/share/drafta
drafta --profile profile --drive C=. --answers answers --batch "$HERE/commands.lsp" >told
sed "s|$product|<product>|g" told
