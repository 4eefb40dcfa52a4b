# Who may not write a folder is told so, and gets no lock there. The superuser may write everywhere and steps down.
as_user() {
    if [ "$(id -u)" = 0 ]; then setpriv --reuid 65534 --regid 65534 --clear-groups "$@"; else "$@"; fi
}
mkdir profile
chmod a+rwx . profile
chmod -R a+rwX pump-station
chmod a-w pump-station
trap "chmod u+w pump-station" EXIT
as_user test -r "$HERE/read_only_folder.lsp" -a -x "$(command -v drafta)" -a -r "$LIBRARIES/RyvPageMan.so" || exit 77
as_user timeout 60 drafta --profile profile --batch "$HERE/read_only_folder.lsp"
