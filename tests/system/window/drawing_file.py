"""What a drawing says, read by other means than the program's own."""


def settings_of(path):
    """{tag: value} of the settings block."""
    with open(path, encoding="utf-8") as file:
        lines = [line.strip() for line in file.read().split("\n")]
    found, is_settings, tag, value = {}, False, "", ""
    entity = ""
    for code, text in zip(lines[::2], lines[1::2]):
        if code == "0":
            if entity == "ATTRIB" and is_settings:
                found[tag] = value
            entity, tag, value = text, "", ""
        elif code == "2" and entity == "INSERT":
            is_settings = text == "KQ_M"
        elif code == "2":
            tag = text
        elif code == "1":
            value = text
    return found
