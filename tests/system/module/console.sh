# A console that waits for its next line reads again what others write meanwhile, and hears of locks. The wait cursor
# ends with the work.
project="pump-station/Pump Station.kqp"
wait_for() {
    for moment in $(seq 600); do
        grep -q "$1" events.txt && return
        sleep 0.05
    done
}
lines() {
    echo "(ryv_openproject (path-full \"$project\") 1)"
    wait_for onProjectActived
    echo '?[5]%L%F%N' > changed
    mv changed "$project"
    wait_for onProjectReRead
    echo '(ryv_get_var "GBL_kq_combined_tagloc_prefix")'
    echo '(list (ryv_beginwaitcursor) (getvar "WAITCURSOR"))'
    echo '(getvar "WAITCURSOR")'
    echo '(ryv_virtuallockproject (ryv_getactiveproject) 1)'
    wait_for onProjectLocked
    echo '(ryv_virtuallockproject (ryv_getactiveproject) 0)'
    wait_for onProjectUnlocked
}
: > events.txt
lines | timeout 60 drafta --profile profile --console --log-events 2> events.txt
grep -v fileMonitoring events.txt | uniq
