#!/usr/bin/env bash
# start-cups.sh
# Makes the printer the print tests and the demo print on: a CUPS queue
# RoamwisePDF (device cups-pdf:/roamwise, PDFs in /var/spool/cups-pdf/roamwise),
# the default destination, which Wine's spooler lists as an installed printer.
# scripts/test.sh runs it after making the base prefix: a clone whose Wine
# refreshed the queue's PPD copy would write it through a hard link into the base.
# Installs what is missing, starts cupsd, creates, enables and selects the
# queue; idempotent, every step time-limited (fails, never hangs). Needs root.
set -uo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
queue=RoamwisePDF
instance=roamwise
out_dir=/var/spool/cups-pdf/$instance
config=/etc/cups/cups-pdf-$instance.conf
ppd=/usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd

say() { echo "start-cups: $*"; }
fail() {
    say "$*"
    exit 1
}
# run LIMIT COMMAND...: the command with a time limit, its output kept for failures.
log=$(mktemp)
trap 'rm -f "$log"' EXIT
run() {
    local limit=$1
    shift
    timeout -k 5 "$limit" "$@" >>"$log" 2>&1 </dev/null
}

sudo=""
if [ "$(id -u)" -ne 0 ]; then
    sudo -n true 2>/dev/null || fail "needs root or password-less sudo to set up CUPS"
    sudo="sudo -n"
fi

# --- Packages -----------------------------------------------------------------
if [ ! -x /usr/sbin/cupsd ] || [ ! -e /usr/lib/cups/backend/cups-pdf ] || [ ! -f "$ppd" ] ||
    ! command -v pdftotext >/dev/null; then
    run 900 "$here/../../scripts/install-deps.sh" || {
        tail -n 20 "$log"
        fail "could not install cups, printer-driver-cups-pdf and poppler-utils"
    }
fi
[ -x /usr/sbin/cupsd ] && [ -f "$ppd" ] || fail "cups or printer-driver-cups-pdf is missing"

# --- The queue's own cups-pdf configuration (cups-pdf reads cups-pdf-<name>.conf
# for the device cups-pdf:/<name>); the system's cups-pdf.conf is left alone.
wanted="# Roamwise test printer
Out $out_dir
Label 2
TitlePref 1
UserUMask 0022
AnonUMask 0022
Grp lpadmin
"
if [ "$(cat "$config" 2>/dev/null)" != "$(printf '%s' "$wanted")" ]; then
    printf '%s' "$wanted" | $sudo tee "$config" >/dev/null || fail "cannot write $config"
fi
# Jobs run as the user who printed: every user may write there.
$sudo mkdir -p "$out_dir" && $sudo chmod 1777 "$out_dir" || fail "cannot make $out_dir"
# Printouts of earlier days go.
$sudo find "$out_dir" -maxdepth 1 -name '*.pdf' -mmin +1440 -delete 2>/dev/null

# --- The scheduler ------------------------------------------------------------
running() { timeout -k 2 5 lpstat -r 2>/dev/null </dev/null | grep -q "scheduler is running"; }
if ! running; then
    # cupsd detaches itself once it is ready; no output of it may keep a
    # caller's pipe open.
    $sudo timeout -k 5 30 /usr/sbin/cupsd </dev/null >/dev/null 2>&1 ||
        fail "cupsd did not start (see /var/log/cups/error_log)"
    for _ in $(seq 1 40); do
        running && break
        sleep 0.25
    done
    running || fail "cupsd started but does not answer"
    say "started cupsd"
fi

# --- The queue ----------------------------------------------------------------
if ! timeout -k 2 10 lpstat -v "$queue" 2>/dev/null </dev/null | grep -q "cups-pdf:/$instance\$"; then
    run 30 $sudo lpadmin -p "$queue" -E -v "cups-pdf:/$instance" -P "$ppd" \
        -D "Roamwise test printer (PDF)" || {
        cat "$log"
        fail "lpadmin could not create the queue $queue"
    }
    say "created the queue $queue"
fi
run 10 $sudo cupsenable "$queue" && run 10 $sudo cupsaccept "$queue" || {
    cat "$log"
    fail "the queue $queue cannot be enabled"
}
if ! timeout -k 2 10 lpstat -d 2>/dev/null </dev/null | grep -q ": $queue\$"; then
    run 10 $sudo lpadmin -d "$queue" || fail "cannot make $queue the default destination"
fi
timeout -k 2 10 lpstat -p "$queue" 2>/dev/null </dev/null | grep -q "enabled" ||
    fail "the queue $queue is not enabled"

say "printer $queue ready (default destination), PDFs in $out_dir"
