# Sourced by check-scale: a cluster of one node in the trial's folder, without control groups and
# with ports and a key of its own. Wants $work; sets munged, slurmctld and slurmd, their ids.

start_cluster() {
  local folder=$work/cluster user host
  user=$(id -un)
  host=$(hostname -s)
  mkdir -m 755 "$folder" "$folder/munge" "$folder/state" "$folder/spool"
  (umask 077 && head -c 1024 /dev/urandom >"$folder/key")
  /usr/sbin/munged --foreground --force --key-file="$folder/key" --seed-file="$folder/seed" \
    --socket="$folder/munge/socket" --pid-file="$folder/munge/pid" \
    --log-file="$folder/munge/log" >/dev/null 2>&1 &
  munged=$!
  cat >"$folder/slurm.conf" <<CONFIG
ClusterName=trial
SlurmctldHost=$host(127.0.0.1)
SlurmUser=$user
SlurmdUser=$user
AuthType=auth/munge
AuthInfo=socket=$folder/munge/socket
SlurmctldPort=20817
SlurmdPort=20818
StateSaveLocation=$folder/state
SlurmdSpoolDir=$folder/spool
SlurmctldPidFile=$folder/slurmctld.pid
SlurmdPidFile=$folder/slurmd.pid
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
JobAcctGatherType=jobacct_gather/none
MpiDefault=none
SelectType=select/cons_tres
SelectTypeParameters=CR_Core
ReturnToService=2
NodeName=$host NodeAddr=127.0.0.1 CPUs=$(nproc) State=UNKNOWN
PartitionName=trial Nodes=$host Default=YES MaxTime=INFINITE State=UP
CONFIG
  export SLURM_CONF=$folder/slurm.conf
  until_true "munge" test -S "$folder/munge/socket"
  /usr/sbin/slurmctld -D >"$folder/slurmctld.log" 2>&1 &
  slurmctld=$!
  until_true "slurmctld" scontrol ping
  /usr/sbin/slurmd -D >"$folder/slurmd.log" 2>&1 &
  slurmd=$!
  until_true "an idle node" node_idle
}

node_idle() { [ "$(sinfo -h -o %T)" = idle ]; }

stop_cluster() {
  scancel --me 2>/dev/null || true
  kill "$slurmd" "$slurmctld" "$munged" 2>/dev/null || true
}
