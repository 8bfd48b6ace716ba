# What the rows of live.txt share.

applications() { command mcusim ps | awk 'NR > 1 { print $2 }'; }

# Ends the row when what was started last has ended.
expect_running() { grep -q '^State:.[^Z]' "/proc/$!/status" || exit; }

# Starts an application and waits until other commands reach it.
start() {
    before=$(applications)
    command mcusim run "$@" < /dev/null >> out 2>&1 &
    until [ "$(applications)" != "$before" ]; do expect_running; done
}

# Waits until so many clients are connected to the only application.
clients() {
    until [ "$(grep -c "$XDG_RUNTIME_DIR/mcusim/" /proc/net/unix)" -gt "$1" ]; do expect_running; done
}

# Ends all applications that have not ended meanwhile; what watches them ends with them.
stop() {
    for application in $(applications); do kill "$application" 2> /dev/null; done
    wait
}
trap 's=$?; stop; exit $s' EXIT # whatever fails

# Runs the commands of a page in their order; what a user leaves in another terminal, in the
# background.
page() {
    sed -n '/^```sh$/,/^```$/p' "$1" | grep -v '^```' > commands
    sed -n '/^```python$/,/^```$/p' "$1" | grep -v '^```' > script
    mcusim() {
        case "$*" in
        run*--play*) ;;
        run*) shift && start "$@" && return ;;
        monitor* | record*)
            command mcusim "$@" >> watched &
            clients $((watchers += 1))
            return ;;
        esac
        command mcusim "$@"
    }
    watchers=0
    set -e
    . ./commands
    python3 script
    unset -f mcusim
}
