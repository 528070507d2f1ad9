# What a running process uses, read from /proc: sourced by the measuring scripts beside it.

ticks_per_second=$(getconf CLK_TCK)
# CPU ticks, user and system, that process $1 has used so far.
cpu_ticks() { awk '{ print $14 + $15 }' "/proc/$1/stat"; }
# Percent of one core between two readings of cpu_ticks, $1 then $2, taken $3 s apart.
percent() {
    awk -v b="$1" -v a="$2" -v t="$ticks_per_second" -v s="$3" \
        'BEGIN { printf "%.2f", 100 * (a - b) / t / s }'
}
# Resident memory of process $1 by its line $2 of /proc/PID/status (VmRSS now, VmHWM the peak).
memory() { awk -v k="$2:" '$1 == k { printf "%.1f MB", $2 / 1024 }' "/proc/$1/status"; }
