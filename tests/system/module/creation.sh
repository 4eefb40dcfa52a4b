# From an empty profile and folder: a project, three drawings in it, and what the next run finds of them.
mkdir jobs
product=$(dirname "$LIBRARIES")/share/drafta
drafta --profile profile --answers answers --batch "$HERE/creation.1.lsp" >made
sed "s|$product|<product>|" made
echo "--- the next run"
drafta --profile profile --batch "$HERE/creation.2.lsp"
kqp show jobs/Demo/Demo.kqp
find jobs -name '*.[fF][lL][lL]'
