for screen in 1440x900 1920x1200 640x400 2880x1800@150; do
    echo "$screen"
    drafta --profile "$screen" --screen "$screen" --batch "$HERE/place.lsp"
done
echo "in the background"
drafta --profile background --background --batch "$HERE/place.lsp"
echo "in the foreground again"
drafta --profile background --batch "$HERE/place.lsp"
