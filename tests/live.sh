# What the rows of live.txt share.

applications() { command mcusim ps | awk 'NR > 1 { print $2 }'; }

# Ends the row when what was started last has ended.
expect_running() { grep -q '^State:.[^Z]' "/proc/$!/status" || exit; }

# The ends of connections that the applications hold; a socket that listens has the flag 00010000.
connections() { grep "$XDG_RUNTIME_DIR/mcusim/" /proc/net/unix | grep -vc ' 00010000 '; }

# Starts an application and waits until other commands reach it, and until it has let go of those
# that asked for it here: clients() must not count them. What is played is connected until it ends.
start() {
    before=$(applications)
    command mcusim run "$@" < /dev/null >> out 2>&1 &
    until [ "$(applications)" != "$before" ]; do expect_running; done
    case "$*" in
    *--play*) ;;
    *) until [ "$(connections)" -eq 0 ]; do expect_running; done ;;
    esac
}

# Waits until so many clients are connected to the applications.
clients() {
    until [ "$(connections)" -ge "$1" ]; do expect_running; done
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
