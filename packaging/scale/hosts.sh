# Sourced by check-scale: two ssh servers on this machine, for one user and with keys of their own,
# stand for two machines. Wants $work; sets north and south, the servers' ids.

# serve NAME PORT: starts a server and leaves its id in `started`.
serve() {
  cat >"$work/sshd.$1" <<CONFIG
Port $2
ListenAddress 127.0.0.1
HostKey $work/hostkey
PidFile none
AuthorizedKeysFile $work/key.pub
StrictModes no
UsePAM no
PasswordAuthentication no
SetEnv PATH=$PATH
CONFIG
  /usr/sbin/sshd -D -f "$work/sshd.$1" -E "$work/sshd.$1.log" &
  started=$!
  cat >>"$work/ssh_config" <<CONFIG
Host $1.example
  HostName 127.0.0.1
  Port $2
  IdentityFile $work/key
  IdentitiesOnly yes
  StrictHostKeyChecking accept-new
  UserKnownHostsFile $work/known
  LogLevel ERROR
CONFIG
}

start_hosts() {
  # Where a server run by root shuts itself in before anyone has logged on.
  [ "$(id -u)" -ne 0 ] || mkdir -p /run/sshd
  ssh-keygen -q -t ed25519 -N '' -f "$work/hostkey"
  ssh-keygen -q -t ed25519 -N '' -f "$work/key"
  serve north 20221
  north=$started
  serve south 20222
  south=$started
  # The sockets lie in the trial's folder and not in the user's own.
  shown ControlPersist | sed "s@~/.ssh@$work@" >>"$work/ssh_config"
  export PARALLEL_SSH="ssh -F $work/ssh_config"
  local host
  for host in north south; do
    for ((tries = 0; tries < 50; ++tries)); do
      ssh -F "$work/ssh_config" $host.example kestrin-export --version >/dev/null && continue 2
      sleep 0.2
    done
    fail "No ssh server: $(cat "$work/sshd.$host.log")"
  done
}

stop_hosts() {
  local host
  for host in north south; do
    ssh -F "$work/ssh_config" -O exit $host.example 2>/dev/null || true
  done
  kill "$north" "$south" 2>/dev/null || true
}
