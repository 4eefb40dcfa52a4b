"""What a project file lists, read by other means than the program's own."""

ATTRIBUTES = "*+?="


def contents(path):
    """[(subfolder trace, file name)] in the order of the file; the name is None for an empty subfolder."""
    with open(path, encoding="utf-8") as file:
        lines = file.read().split("\n")
    found, trace = [], ""
    for line in lines:
        if line.startswith("=====SUB=") and line.endswith("[Empty]"):
            found.append((line[len("=====SUB="):-len("[Empty]")], None))
        elif line.startswith("=====SUB="):
            trace = line[len("=====SUB="):]
        elif line and line[0] not in ATTRIBUTES:
            found.append((trace, line.rsplit("\\", 1)[-1]))
            trace = ""
    return found


def trace_of(path, name):
    """The subfolder in which a drawing lies; None when it is not in the project."""
    return next((trace for trace, drawing in contents(path) if drawing == name), None)


def in_subfolder(path, trace):
    return [drawing for its, drawing in contents(path) if its == trace]


def setting(path, number):
    """A drawing setting that the project lists."""
    start = f"?[{number}]"
    with open(path, encoding="utf-8") as file:
        return next((line[len(start):] for line in file.read().split("\n") if line.startswith(start)), None)
