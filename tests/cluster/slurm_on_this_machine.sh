#!/bin/sh
# SPDX-License-Identifier: BSD-3-Clause
# slurm_on_this_machine.sh FOLDER COMMAND...: runs a command with a Slurm of its own: one node, this machine, with 4
# processors whatever it has. All that it writes is in FOLDER. Status 77, with the reason in one line, where its daemons
# cannot run.
folder=$1
shift
mkdir -p "$folder/state" "$folder/spool" "$folder/munge" || exit 1
chmod 755 "$folder" && chmod 700 "$folder/munge" # what munged insists on
PATH=$PATH:/usr/sbin:/sbin

skip() {
    echo "Slurm cannot run here: $*"
    exit 77
}

for program in munged slurmctld slurmd sbatch squeue scancel; do
    command -v $program >/dev/null || skip "$program is missing"
done
[ "$(id -u)" = 0 ] || skip "slurmd needs root"

port=$((20000 + $$ % 10000 * 4))
cat >"$folder/slurm.conf" <<END
ClusterName=gridio
SlurmctldHost=$(hostname -s)(127.0.0.1)
SlurmUser=root
SlurmdUser=root
SlurmctldPort=$((port))
SlurmdPort=$((port + 1))
AuthType=auth/munge
AuthInfo=socket=$folder/munge/socket
CryptoType=crypto/munge
StateSaveLocation=$folder/state
SlurmdSpoolDir=$folder/spool
SlurmctldPidFile=$folder/slurmctld.pid
SlurmdPidFile=$folder/slurmd.pid
SlurmctldLogFile=$folder/slurmctld.log
SlurmdLogFile=$folder/slurmd.log
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
JobAcctGatherType=jobacct_gather/none
AccountingStorageType=accounting_storage/none
SelectType=select/cons_res
SelectTypeParameters=CR_Core
SchedulerType=sched/builtin
SchedulerParameters=sched_interval=1,batch_sched_delay=0,sched_min_interval=0
ReturnToService=2
SlurmdParameters=config_overrides
MailProg=/bin/true
MpiDefault=none
KillWait=1
NodeName=$(hostname -s) NodeAddr=127.0.0.1 CPUs=4 State=UNKNOWN
PartitionName=all Nodes=ALL Default=YES MaxTime=10 State=UP
END
export SLURM_CONF="$folder/slurm.conf"

stop() {
    for daemon in $slurmd $slurmctld $munged; do
        kill "$daemon" 2>/dev/null
    done
    wait
}
trap stop EXIT
trap 'exit 1' INT TERM

dd if=/dev/urandom of="$folder/munge/key" bs=1 count=1024 2>/dev/null
chmod 400 "$folder/munge/key"
munged --force --foreground --key-file="$folder/munge/key" --socket="$folder/munge/socket" --pid-file="$folder/munge/pid" \
    --log-file="$folder/munge/log" --seed-file="$folder/munge/seed" >"$folder/munge/said" 2>&1 &
munged=$!
tries=0
until [ -S "$folder/munge/socket" ]; do
    tries=$((tries + 1))
    [ $tries -lt 100 ] || skip "munged: $(tail -n 1 "$folder/munge/said")"
    sleep 0.1
done
slurmctld -D -i >"$folder/slurmctld.said" 2>&1 &
slurmctld=$!
slurmd -D >"$folder/slurmd.said" 2>&1 &
slurmd=$!
tries=0
until [ "$(sinfo --noheader --format=%t 2>/dev/null)" = idle ]; do
    tries=$((tries + 1))
    [ $tries -lt 200 ] || skip "$(tail -qn 1 "$folder/slurmctld.said" "$folder/slurmd.said" | tr '\n' ' ')"
    sleep 0.1
done
"$@"
