"""The measuring half of tools/cpu-cost.sh, which starts it on a display and in a prefix of its own."""
import os
import statistics
import struct
import subprocess
import sys
import time
from pathlib import Path

PREFIX = os.environ['WINEPREFIX']
FOLDER = 'C:\\Kestrum2\\'
SETTINGS = 'HKCU\\Software\\Morvell\\Kestrum2'
PARTS = 6  # the figures are medians of so many parts of the time

# Its own timer off, the page of processes with the usual columns; the Pacer is its clock.
TASK_MANAGER = [0, 405, 177, 875, 623, 1, 0, 1, 1, 1, 0, 0, 0, 1, 0, 1, 1, 1, 1, 1] + [0] * 21 + list(range(1, 25)) + [
    105, 50, 107, 70, 35, 70, 70, 100, 70, 70, 70, 70, 70, 70, 60, 60, 60, 60, 60, 70, 70, 70, 70, 70, 70, 1, 1, 1, 0]


def start(*command):
    return subprocess.Popen(['wine', *command], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def call(*command):
    start(*command).wait()


def named(name):
    """The processes of this prefix that were started under that name."""
    found = []
    for process in Path('/proc').glob('[0-9]*'):
        try:
            line = (process / 'cmdline').read_bytes().split(b'\0')[0].decode(errors='replace')
            environment = (process / 'environ').read_bytes().split(b'\0')
        except OSError:
            continue
        if name.lower() in line.lower() and f'WINEPREFIX={PREFIX}'.encode() in environment:
            found.append(int(process.name))
    return found


def wait_for(condition, what, seconds=180):
    end = time.monotonic() + seconds
    while not (found := condition()):
        if time.monotonic() > end:
            sys.exit(f'{what} did not come')
        time.sleep(0.2)
    return found


def nanoseconds(process):
    """That all threads of the process have run so far."""
    return sum(int(task.read_text().split()[0]) for task in Path(f'/proc/{process}/task').glob('*/schedstat'))


def rates(processes, seconds):
    """CPU milliseconds a second of each process, from now on."""
    parts = []
    for _ in range(PARTS):
        before, begin = [nanoseconds(process) for process in processes], time.monotonic()
        time.sleep(seconds / PARTS)
        after, end = [nanoseconds(process) for process in processes], time.monotonic()
        parts.append([(b - a) / 1e6 / (end - begin) for a, b in zip(before, after)])
    return [statistics.median(column) for column in zip(*parts)]


def settle(processes):
    """Waits until two periods agree, half a minute at the most."""
    before = None
    for _ in range(10):
        now = sum(rates(processes, 3))
        if before is not None and abs(now - before) <= max(3, 0.2 * before):
            return
        before = now
    print('it did not come to rest')


def private_kilobytes(process):
    lines = Path(f'/proc/{process}/smaps_rollup').read_text().splitlines()
    return sum(int(line.split()[1]) for line in lines if line.startswith('Private_Dirty'))


def start_program(what):
    """Starts it, waits for its process and gives that."""
    if what == 'taskmgr':
        data = struct.pack(f'<{len(TASK_MANAGER)}i', *TASK_MANAGER).hex()
        call('reg', 'add', 'HKCU\\Software\\Wine\\TaskManager', '/v', 'Preferences', '/t', 'REG_BINARY', '/d', data, '/f')
        start('taskmgr')
        start(FOLDER + 'Pacer.exe', 'Task Manager', '500', '1')
        name = 'taskmgr.exe'
    elif what == 'empty':
        name = 'Empty.exe'
        folder = Path(PREFIX, 'drive_c/Kestrum2')
        (folder / name).write_bytes((folder / 'Target.exe').read_bytes())
        start(FOLDER + name, '3600')
    elif what == 'jr':
        name = 'Kestrum_Jr.exe'
        Path(PREFIX, 'drive_c/Kestrum2/My Favs 1').write_bytes(
            b'[Kestrum 2 - Morvell Software 2010]\r\nNowhere.exe\t0\tHigh\tC:\\Nowhere.exe\t\r\n')
        start(FOLDER + name, '/My', 'Favs', '1')
    else:
        name = 'Kestrum2.exe'
        call('reg', 'add', SETTINGS, '/v', 'MiniMe', '/d', '1' if what == 'tray' else '0', '/f')
        start(FOLDER + name)
    return wait_for(lambda: named(name), name)[-1]


def main():
    server_of_display, what = int(sys.argv[1]), sys.argv[2]
    crowd = int(sys.argv[3]) if len(sys.argv) > 3 else 100
    seconds = float(sys.argv[4]) if len(sys.argv) > 4 else 30
    start(FOLDER + 'Target.exe', '3600')  # keeps the desktop up
    wait_for(lambda: named('Target.exe'), 'the desktop')
    call(FOLDER + 'Crowd.exe', str(crowd))
    wait_for(lambda: len(named('Crowd.exe')) >= crowd, 'the crowd')
    [wineserver] = named('wineserver')
    servers = [wineserver, server_of_display]
    settle(servers)
    before = rates(servers, 12)
    program = start_program(what)
    settle([program, *servers])
    own, wine, display = rates([program, *servers], seconds)
    wine, display = wine - before[0], display - before[1]
    print(f'{what}, {crowd} processes: program {own:.1f}, wineserver {wine:.1f}, X server {display:.1f}, together '
          f'{own + wine + display:.1f} ms/s; private dirty memory {private_kilobytes(program) / 1024:.1f} MB')


main()
