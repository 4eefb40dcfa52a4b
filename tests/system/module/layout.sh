for run in 1 2 3; do
    echo "--- run $run"
    drafta --profile profile --batch "$HERE/layout.$run.lsp"
    [ $run = 1 ] && cat profile/workspace.xml
    grep -B 1 Visibility profile/registry.txt
done
