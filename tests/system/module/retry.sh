# LISP that fails to take an active project over is told again in a second, while the console waits for a line.
lines() {
    cat <<'END'
(defun ryv_makeproj_active (path)
  (setq told (1+ told))
  (close (open (strcat "told." (itoa told)) "w"))
  (if (= told 1) (car 'wrong))
  T)
(setq told 0)
(ryv_openproject (path-full "pump-station/Pump Station.kqp") 1)
END
    for moment in $(seq 600); do
        [ -e told.2 ] && break
        sleep 0.05
    done
}
lines | timeout 60 drafta --profile profile --console
passed=$((($(date -r told.2 +%s%N) - $(date -r told.1 +%s%N)) / 1000000))
[ $passed -ge 990 ] && echo "a second later" || echo "after $passed ms"
