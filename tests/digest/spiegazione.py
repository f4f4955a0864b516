"""A difference is explained: the operation, the first call, what it was given, and the command that keeps new results.

usage: spiegazione.py KEL_DIGEST VALUES      each case changes one line of a copy of VALUES
"""

import pathlib
import subprocess
import sys
import tempfile

PROGRAM, VALUES = sys.argv[1], pathlib.Path(sys.argv[2])
ROUNDS = "2000"
OPERATION = "kelFunGetUIVs"
FAILED = []


def check(case, condition, output):
    if not condition:
        FAILED.append(case)
        print(f"{case}\n{output}")


def run(change):
    """What the program says when `change` was made to the kept line of the operation; None takes the line out."""
    lines = VALUES.read_text(encoding="utf-8").splitlines()
    columns = next(line for line in lines if line.startswith("operation\t")).split("\t").index(ROUNDS)
    place = next(i for i, line in enumerate(lines) if line.startswith(OPERATION + "\t"))
    lines[place : place + 1] = change(lines[place].split("\t"), columns)
    with tempfile.TemporaryDirectory() as folder:
        copy = pathlib.Path(folder, "values.txt")
        copy.write_text("\n".join(lines) + "\n", encoding="utf-8")
        command = [PROGRAM, "--rounds", ROUNDS, "--check", str(copy)]
        done = subprocess.run(command, capture_output=True, text=True, timeout=300)
    return done.returncode, done.stdout


def another(digits):
    return ("1" if digits[0] == "0" else "0") + digits[1:]


def block(number):
    """Another digest, and other bits of one block."""

    def change(cells, column):
        cells[column] = another(cells[column])
        blocks = cells[-1]
        cells[-1] = blocks[: 4 * number] + another(blocks[4 * number : 4 * number + 4]) + blocks[4 * number + 4 :]
        return ["\t".join(cells)]

    return change


def explains(case, change, *wanted):
    code, output = run(change)
    check(f"{case}: exit status {code} instead of 1", code == 1, output)
    for text in wanted:
        check(f"{case}: says '{text}'", text in output, output)


def main():
    code, output = run(lambda cells, column: ["\t".join(cells)])
    check("nothing differs: exit status 0", code == 0, output)

    command = "scripts/digest --write keeps the new results"
    explains("first call", block(0), f"{OPERATION}: the first call that differs is 1 of 2000", "  call 1\n", command)
    # Blocks 0 to 14 are one call each: 1 to 15. The next are two calls each.
    explains("a block of two", block(15), f"{OPERATION}: the first call that differs is one of 16 to 17 of 2000",
             "  call 16\n    given  0x", "  call 17\n    given  0x", f"--show '{OPERATION}' 16 17", command,
             " operations differ from ")
    check("a block of two: no other call is printed", "  call 18\n" not in run(block(15))[1], output)
    explains("no digest kept", lambda cells, column: [], f"{OPERATION}: no digest is kept", command)
    explains("no such operation", lambda cells, column: ["\t".join(cells), "\t".join(["altro"] + cells[1:])],
             "altro: a digest is kept, but there is no such operation")

    shown = subprocess.run([PROGRAM, "--show", OPERATION, "16", "17"], capture_output=True, text=True, timeout=60)
    check("--show prints the same calls", shown.stdout and shown.stdout in run(block(15))[1], shown.stdout)
    print(f"{len(FAILED)} explanations are wrong" if FAILED else "every difference is explained")
    return 1 if FAILED else 0


sys.exit(main())
