#!/bin/sh
# SPDX-License-Identifier: BSD-3-Clause
# two_hosts_on_this_machine.sh COMMAND...: runs a command on one of two hosts, which are network namespaces of this machine
# with names and addresses of their own, 10.77.7.1 and 10.77.7.2. LAUNCH_AGENT is a program that runs a command on the other
# one, as ssh does. Status 77, with the reason in one line, where namespaces cannot be made.
skip() {
    echo "two hosts cannot be made here: $*"
    exit 77
}
[ "$(id -u)" = 0 ] || skip "that needs root"
command -v ip >/dev/null || skip "ip is missing"

one=gridio$$a
two=gridio$$b
folder=$(mktemp -d)
stop() {
    ip netns delete $one 2>/dev/null
    ip netns delete $two 2>/dev/null
    rm -rf "$folder"
}
trap stop EXIT
trap 'exit 1' INT TERM

said=$({ ip netns add $one && ip netns add $two &&
    ip link add veth0 netns $one type veth peer name veth0 netns $two &&
    ip -n $one address add 10.77.7.1/24 dev veth0 && ip -n $two address add 10.77.7.2/24 dev veth0 &&
    for host in $one $two; do ip -n $host link set lo up && ip -n $host link set veth0 up || exit; done &&
    unshare --uts true; } 2>&1) || skip "$said"

cat >"$folder/agent" <<END
#!/bin/sh
# The words before the command are options and the host.
while case \$1 in -*) true ;; *) false ;; esac; do shift; done
shift
exec ip netns exec $two unshare --uts sh -c 'hostname hosttwo; exec sh -c "\$*"' sh "\$@"
END
chmod +x "$folder/agent"
export LAUNCH_AGENT="$folder/agent"
ip netns exec $one unshare --uts sh -c 'hostname hostone; exec "$@"' sh "$@"
