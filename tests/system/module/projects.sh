# A second run opens what was open, with the same active project; what was closed stays closed. Without the list
# of last projects, the package's list of recent ones is taken.
for run in 1 2 3; do
    echo "--- run $run"
    drafta --profile profile --batch "$HERE/projects.$run.lsp"
done
mkdir recent
cp profile/recent.txt recent
echo "--- from the list of recent projects"
drafta --profile recent --batch "$HERE/projects.3.lsp"
