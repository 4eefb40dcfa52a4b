# The temporary drawing is gone behind the first run, and its settings are there in the second.
mkdir -p profile/support
cp "pump-station/01 Cover Sheet.dwg" pump-station/Read-only.dwg
chmod a-w pump-station/Read-only.dwg
drafta --profile profile --answers answers --batch "$HERE/files.1.lsp"
echo "--- run 2"
drafta --profile profile --batch "$HERE/files.2.lsp"
echo
find pump-station profile -newer pump-station/Read-only.dwg -type f | sort
