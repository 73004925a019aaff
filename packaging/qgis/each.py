import sys


def look_at_each(look_at):
    """Calls look_at for each job that the command line names: 1 where one of them is not as it
    must be, else 0."""
    failed = 0
    for path in sys.argv[1:]:
        print(path.rsplit("/", 1)[-1], flush=True)
        try:
            look_at(path)
        except Exception as fault:  # whatever it is, the next job is looked at
            failed = 1
            print(f"  FAILED: {fault!r}")
    return failed
