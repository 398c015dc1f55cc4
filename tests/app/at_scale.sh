#!/usr/bin/env bash
# Runs a recipe of docs/at-scale.md, with the commands of that page, on a small folder: all drawings
# are converted, a bad one is told, and running the recipe again does only what is left.
#
# Usage: at_scale.sh parallel|slurm|one QUILLON-CONVERT PAGE DRAWING
#
# Skipped (exit code 77) where the programs that the recipe needs are missing. Servers run for this
# test only, with keys, settings and files of their own in a temporary folder.
set -euo pipefail
recipe=$1
converter=$2
page=$3
drawing=$4
readonly drawings_wanted=1200

leave_out() {
  echo "left out: $1"
  exit 77
}
fail() {
  echo "failed: $1" >&2
  tail -n 20 "$work"/*.log >&2 || true
  exit 1
}

work=$(mktemp -d)
servers=()
finish() {
  for server in "${servers[@]}"; do kill "$server" 2>/dev/null || true; done
  for server in "${servers[@]}"; do wait "$server" 2>/dev/null || true; done
  rm -rf "$work"
}
trap finish EXIT
export HOME=$work
mkdir -p "$work/drawings/one/two"

# block HEADING NUMBER: the commands of the page below a heading, with this test's places.
block() {
  awk -v heading="## $1" -v wanted="$2" '
    /^## / { inside = $0 == heading }
    /^```sh$/ { if (inside) { ++number; copying = number == wanted }; next }
    /^```$/ { copying = 0 }
    copying' "$page" |
    sed -e "s|^program=[^ ]*|program='$converter'|" -e "s|/srv/drawings|$work/drawings|" \
      -e "s|/srv/results|$work/results|" -e "s|^hosts=[^ ]*|hosts=1/127.0.0.1,1/127.0.0.2|" \
      -e "s|^quillon-convert |'$converter' |" > "$work/block"
  [ -s "$work/block" ] || fail "the page has no commands below \"$1\""
  cat "$work/block"
}

# The bad drawing is the last one; names have blanks and quotes.
make_drawings() {
  local i folder
  for ((i = 1; i < drawings_wanted; ++i)); do
    folder=$work/drawings
    [ $((i % 3)) -ne 0 ] || folder+=/one/two
    cp "$drawing" "$folder/it's part $i.dxf"
  done
  echo "no drawing" > "$work/drawings/one/z bad.dxf"
  find "$work/drawings" -name '*.dxf' -exec touch -d '1 hour ago' {} +
}

# outcomes FILE...: how many drawings had which outcome.
outcomes() {
  cat "$@" | sed -n 's/.*"outcome":"\([a-z]*\)".*/\1/p' | sort | uniq -c |
    awk '{ printf "%s %s ", $1, $2 }'
}
scripts() { find "$work/drawings" -name '*.scr' | wc -l; }

expect() {
  [ "$2" = "$3" ] || fail "$1: \"$2\" instead of \"$3\""
}

start_sshd() {
  local port=$((20000 + RANDOM % 10000))
  ssh-keygen -q -t ed25519 -N '' -f "$work/host_key"
  ssh-keygen -q -t ed25519 -N '' -f "$work/user_key"
  cp "$work/user_key.pub" "$work/authorized_keys"
  [ "$(id -u)" -ne 0 ] || mkdir -p /run/sshd
  cat > "$work/sshd_config" <<END
Port $port
ListenAddress 127.0.0.1
ListenAddress 127.0.0.2
HostKey $work/host_key
PidFile $work/sshd.pid
AuthorizedKeysFile $work/authorized_keys
StrictModes no
UsePAM no
PasswordAuthentication no
PermitRootLogin prohibit-password
END
  cat > "$work/ssh_config" <<END
Host *
Port $port
IdentityFile $work/user_key
IdentitiesOnly yes
BatchMode yes
StrictHostKeyChecking accept-new
UserKnownHostsFile $work/known_hosts
LogLevel ERROR
END
  "$(command -v sshd || echo /usr/sbin/sshd)" -D -f "$work/sshd_config" -E "$work/sshd.log" &
  servers+=($!)
  export PARALLEL_SSH="ssh -F $work/ssh_config"
  local try
  for ((try = 0; try < 50; ++try)); do
    if $PARALLEL_SSH 127.0.0.1 true 2>/dev/null && $PARALLEL_SSH 127.0.0.2 true; then return; fi
    sleep 0.2
  done
  fail "sshd does not answer"
}

run_parallel() {
  local status=0
  block "Several hosts with GNU parallel" 1 > "$work/run"
  bash -eu "$work/run" > "$work/run.log" 2>&1 || status=$?
  expect "jobs that failed" "$status" "$1"
}

try_parallel() {
  for program in parallel ssh ssh-keygen; do
    command -v "$program" > /dev/null || leave_out "$program is not installed"
  done
  command -v sshd > /dev/null || [ -x /usr/sbin/sshd ] || leave_out "sshd is not installed"
  parallel --version 2>/dev/null | grep -q '^GNU parallel' || leave_out "parallel is not GNU parallel"
  mkdir -p "$HOME/.parallel" && touch "$HOME/.parallel/will-cite"
  start_sshd
  run_parallel 1
  expect outcomes "$(outcomes "$work"/results/[123].json)" "1199 converted 1 failed "
  expect scripts "$(scripts)" 1199
  expect hosts "$(cut -f 2 "$work/results/joblog" | sed 1d | sort -u | wc -l)" 2
  # What is resumed is the job that failed, and of that what has no script.
  cp "$drawing" "$work/drawings/one/z bad.dxf"
  touch -d '1 hour ago' "$work/drawings/one/z bad.dxf"
  local before failed
  before=$(wc -l < "$work/results/joblog")
  failed=$(awk 'NR > 1 && $7 != 0 { print $1 }' "$work/results/joblog")
  run_parallel 0
  expect "jobs that ran again" $(($(wc -l < "$work/results/joblog") - before)) 1
  outcomes "$work/results/$failed.json" | grep -q '^1 converted [0-9]* skipped $' ||
    fail "the job that ran again: $(outcomes "$work/results/$failed.json")"
  expect scripts "$(scripts)" 1200
  run_parallel 0
}

start_slurm() {
  local port=$((30000 + RANDOM % 10000)) host
  host=$(hostname -s)
  chmod 755 "$work"
  mkdir -p "$work/munge" "$work/state" "$work/spool"
  chmod 700 "$work/munge"
  head -c 128 /dev/urandom > "$work/munge/key"
  chmod 600 "$work/munge/key"
  munged --foreground --force --socket="$work/munge.socket" --key-file="$work/munge/key" \
    --pid-file="$work/munge/pid" --log-file="$work/munged.log" --seed-file="$work/munge/seed" \
    > "$work/munged.out.log" 2>&1 &
  servers+=($!)
  cat > "$work/slurm.conf" <<END
ClusterName=test
SlurmctldHost=$host(127.0.0.1)
SlurmctldPort=$port
SlurmdPort=$((port + 1))
SlurmUser=$(id -un)
SlurmdUser=$(id -un)
AuthType=auth/munge
AuthInfo=socket=$work/munge.socket
CredType=cred/munge
StateSaveLocation=$work/state
SlurmdSpoolDir=$work/spool
SlurmctldPidFile=$work/slurmctld.pid
SlurmdPidFile=$work/slurmd.pid
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
JobAcctGatherType=jobacct_gather/none
SwitchType=switch/none
MpiDefault=none
ReturnToService=2
SchedulerParameters=sched_interval=1
SelectType=select/cons_tres
SelectTypeParameters=CR_CPU
NodeName=$host NodeAddr=127.0.0.1 CPUs=$(nproc) RealMemory=1000 State=UNKNOWN
PartitionName=all Nodes=$host Default=YES MaxTime=INFINITE State=UP
END
  export SLURM_CONF=$work/slurm.conf
  local try
  for ((try = 0; try < 50; ++try)); do
    [ ! -S "$work/munge.socket" ] || break
    sleep 0.2
  done
  slurmctld -D -i > "$work/slurmctld.log" 2>&1 &
  servers+=($!)
  slurmd -D -N "$host" > "$work/slurmd.log" 2>&1 &
  servers+=($!)
  for ((try = 0; try < 150; ++try)); do
    if sinfo -h -o %t 2>/dev/null | grep -q '^idle$'; then return; fi
    sleep 0.2
  done
  sinfo >&2 || true
  fail "no node of Slurm is ready"
}

run_slurm() {
  local status=0
  block "A cluster with Slurm" 2 > "$work/submit"
  (cd "$work" && bash -eu submit) > "$work/run.log" 2>&1 || status=$?
  expect "exit code" "$status" "$1"
}

try_slurm() {
  for program in munged slurmctld slurmd sbatch sinfo; do
    PATH=$PATH:/usr/sbin command -v "$program" > /dev/null || leave_out "$program is not installed"
  done
  export PATH=$PATH:/usr/sbin
  [ "$(id -u)" -eq 0 ] || leave_out "slurmd needs root"
  start_slurm
  block "A cluster with Slurm" 1 > "$work/convert.sbatch"
  run_slurm 1
  expect outcomes "$(outcomes "$work"/results/[123].json)" "1199 converted 1 failed "
  expect scripts "$(scripts)" 1199
  cp "$drawing" "$work/drawings/one/z bad.dxf"
  touch -d '1 hour ago' "$work/drawings/one/z bad.dxf"
  run_slurm 0
  expect outcomes "$(outcomes "$work"/results/[123].json)" "1 converted 1199 skipped "
  expect scripts "$(scripts)" 1200
}

try_one() {
  block "One machine" 1 > "$work/run"
  local status=0
  (cd "$work" && bash -eu run) > "$work/run.log" 2>&1 || status=$?
  expect "exit code" "$status" 1
  expect outcomes "$(outcomes "$work/results.json")" "1199 converted 1 failed "
  (cd "$work" && bash -eu run) > "$work/run.log" 2>&1 || true
  expect outcomes "$(outcomes "$work/results.json")" "1 failed 1199 skipped "
}

make_drawings
"try_$recipe"
echo "the recipe holds"
