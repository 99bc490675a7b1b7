#!/usr/bin/env bash
# A PostgreSQL and a MariaDB of this project's own, on loopback, for the demo and the tests.
# Usage: tools/servers.sh start|stop|strings FOLDER, from the project's root.
#
# start makes what is not there yet and starts what does not run; strings prints one line for each
# that runs: engine, a tab, connection string. Databases, logs, ports and passwords stand in FOLDER;
# nothing of the system's own servers is used or changed.
set -euo pipefail
shopt -s inherit_errexit
export LC_ALL=C.UTF-8      # what servers say is the same everywhere
PATH=$PATH:/usr/sbin:/sbin  # where servers are; not on every user's path
action=$1
mkdir -p "$2"
folder=$(cd "$2" && pwd)
user=fetchkit

say() { printf '%s\n' "$*" >&2; }

# The account that runs a server: its package's own, because both refuse root; whoever calls otherwise.
account() {
  ((EUID == 0)) || { id -un; return; }
  getent passwd "$1" >/dev/null && echo "$1" || echo nobody
}
# as ACCOUNT COMMAND...
as() {
  local who=$1
  shift
  if [[ $who == "$(id -un)" ]]; then "$@"; else runuser -u "$who" -- "$@"; fi
}

# place ENGINE ACCOUNT: the folder of the server's data. Where its account cannot reach the build
# folder, one that it can reach, to which a link stands there.
place() {
  local link=$folder/$1 reached
  if [[ -L $link && ! -e $link ]]; then rm "$link"; fi  # what it led to was cleaned away
  if [[ ! -e $link ]]; then
    mkdir "$link"
    chown "$2" "$link"
    chmod 700 "$link"
    if ! as "$2" test -w "$link"; then
      rmdir "$link"
      reached=$(as "$2" mktemp -d "${TMPDIR:-/tmp}/fetchkit-$1.XXXXXX")
      ln -s "$reached" "$link"
    fi
  fi
  readlink -f "$link"
}

# kept NAME COMMAND...: what the command prints, from then on.
kept() {
  local file=$folder/$1
  shift
  [[ -s $file ]] || (umask 077 && "$@" >"$file")
  cat "$file"
}
password() { od -An -N12 -tx1 /dev/urandom | tr -d ' \n'; }
# free_port BEGIN: the first port from there on at which nobody answers.
free_port() {
  local port=$1
  while (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; do port=$((port + 1)); done
  echo "$port"
}
# runs ENGINE PID: whether that process is this folder's server; numbers are used again.
runs() { [[ $(readlink "/proc/$2/cwd" 2>/dev/null) == "$(readlink -f "$folder/$1")"/* ]]; }
answers() { (exec 3<>"/dev/tcp/127.0.0.1/$1") 2>/dev/null; }

postgres_bin() { find /usr/lib/postgresql -maxdepth 2 -name bin 2>/dev/null | sort -V | tail -n 1; }

start_postgresql() {
  local who bin data port
  who=$(account postgres)
  bin=$(postgres_bin)
  data=$(place postgresql "$who")
  if [[ ! -e $data/data/PG_VERSION ]]; then
    # Texts are compared by their codes; letters have their case beyond ASCII, too.
    kept password password | as "$who" bash -c "umask 077; cat >'$data/password'; cd '$data';
      trap \"rm -f '$data/password'\" EXIT
      '$bin/initdb' -D '$data/data' -U $user --pwfile='$data/password' -A scram-sha-256 -E UTF8 \
        --locale=C --lc-ctype=C.UTF-8 --no-sync" >"$folder/postgresql.log" 2>&1 ||
      { cat "$folder/postgresql.log" >&2; return 1; }
  fi
  as "$who" "$bin/pg_ctl" -D "$data/data" status >/dev/null 2>&1 && return
  rm -f "$folder/postgresql.port"
  port=$(kept postgresql.port free_port $((24000 + RANDOM % 4000)))
  # On one line: a shell reads it again.
  local options="-p $port -c listen_addresses=127.0.0.1 -c unix_socket_directories='' -c fsync=off"
  (cd "$data" && as "$who" "$bin/pg_ctl" -D "$data/data" -w -l "$data/log" -o "$options" start) \
    >/dev/null ||
    { cat "$data/log" >&2; return 1; }
}

start_mariadb() {
  local who data port attempt
  who=$(account mysql)
  data=$(place mariadb "$who")
  if [[ ! -d $data/data/mysql ]]; then
    as "$who" mariadb-install-db --no-defaults --datadir="$data/data" --skip-test-db \
      --auth-root-authentication-method=socket >"$folder/mariadb.log" 2>&1 ||
      { cat "$folder/mariadb.log" >&2; return 1; }
  fi
  [[ -s $data/pid ]] && runs mariadb "$(cat "$data/pid")" && return
  rm -f "$data/pid"
  rm -f "$folder/mariadb.port"
  as "$who" bash -c "umask 077; cat >'$data/users.sql'" <<SQL
CREATE OR REPLACE USER '$user'@'127.0.0.1' IDENTIFIED BY '$(kept password password)';
GRANT ALL ON *.* TO '$user'@'127.0.0.1' WITH GRANT OPTION;
SQL
  port=$(kept mariadb.port free_port $((28000 + RANDOM % 4000)))
  as "$who" bash -c "cd '$data'; exec setsid mariadbd --no-defaults --datadir='$data/data' --port=$port \
    --bind-address=127.0.0.1 --socket='$data/socket' --pid-file='$data/pid' --skip-name-resolve \
    --lower-case-table-names=1 --character-set-server=utf8mb4 \
    --collation-server=utf8mb4_nopad_bin --innodb-flush-log-at-trx-commit=0 \
    --innodb-buffer-pool-size=64M --init-file='$data/users.sql' >'$data/log' 2>&1 </dev/null &"
  for attempt in {1..150}; do
    [[ -s $data/pid ]] && answers "$port" && return
    sleep 0.2
  done
  cat "$data/log" >&2
  return 1
}

stop_server() {  # ENGINE PID-FILE SIGNAL
  local file pid
  file=$(readlink -f "$folder/$1")/$2
  [[ -s $file ]] || return 0
  pid=$(head -n 1 "$file")
  runs "$1" "$pid" || return 0
  kill -s "$3" "$pid" 2>/dev/null || return 0
  local end=$((SECONDS + 60))
  while runs "$1" "$pid" && ((SECONDS < end)); do sleep 0.1; done
}

strings() {
  local secret
  [[ -s $folder/password ]] || return 0
  secret=$(cat "$folder/password")
  if [[ -s $folder/postgresql.port ]] && answers "$(cat "$folder/postgresql.port")"; then
    printf 'postgresql\tDriver=PostgreSQL Unicode;Server=127.0.0.1;Port=%s;Database=postgres;UID=%s;PWD=%s\n' \
      "$(cat "$folder/postgresql.port")" $user "$secret"
  fi
  if [[ -s $folder/mariadb.port ]] && answers "$(cat "$folder/mariadb.port")"; then
    printf 'mariadb\tDriver=MariaDB Unicode;Server=127.0.0.1;Port=%s;OPTION=2;UID=%s;PWD=%s\n' \
      "$(cat "$folder/mariadb.port")" $user "$secret"
  fi
}

case "$action" in
  start)
    start_postgresql
    start_mariadb
    ;;
  stop)
    [[ ! -e $folder/postgresql ]] || stop_server postgresql data/postmaster.pid INT
    [[ ! -e $folder/mariadb ]] || stop_server mariadb pid TERM
    ;;
  strings) strings ;;
esac
