#include "programs/kqp/command_table.h"

#include "programs/kqp/commands.h"

#include <algorithm>
#include <array>

namespace kqp {

namespace {

using Text = std::string_view;

constexpr std::array<Text, 3> colorChoices = {"auto", "always", "never"};

constexpr std::array<Operand, 1> oneFile = {{{"FILE"}}};
constexpr std::array<Operand, 1> oneFileOfAnyKind = {{{"FILE", WordKind::anyFile}}};
constexpr std::array<Operand, 2> twoFiles = {{{"A"}, {"B"}}};
constexpr std::array<Operand, 1> maybeCommand = {{{"COMMAND", WordKind::commandName, true}}};

constexpr std::array<Option, 2> showOptions = {{
    {"json", '\0', {}, {}, {},
        "Print one JSON object for other programs, in UTF-8, instead of text for people."},
    {"color", '\0', "WHEN", WordKind::fixedChoice, colorChoices,
        "Use colours `always`, `never`, or with `auto`, which is the default, on a terminal unless the "
        "environment variable NO_COLOR is set."},
}};

constexpr std::array<Text, 4> showText = {
    "Prints what is in a project file: its descriptions, its settings, and the tree of its drawings in "
    "the order of the file. Of the default drawing settings those are named that differ from the "
    "built-in ones. Control characters are shown escaped; below 64 levels the tree is continued as a "
    "list with the level in brackets.",
    "With `--json`, \"project\" is the full path of the project with \"\\\" between its components, "
    "\"settings\" has all 77 default drawing settings by name, with null for an absent one, and \"misc\" "
    "has the miscellaneous settings that are present. An \"id\" of 0 means that the drawing has no "
    "identifier in the project's companion store. Half a surrogate pair, which may stand for a byte that "
    "was no text, is written as an escape.",
    "Every object has all of its keys. \"project\", \"name\" (the title in upper case) and \"encoding\" "
    "(`utf-8`, `utf-8-bom`, `utf-16le`, `utf-16be` or `windows-1252`) are texts, \"descriptions\" is a "
    "list of texts. \"items\" is the tree in its order: a drawing is {\"type\": \"drawing\", \"file\", "
    "\"id\", \"description1\", \"description2\", \"descriptions\", \"reference\"}, with the full path as "
    "its file, a number as its id and a list of texts as its descriptions; a subfolder is {\"type\": "
    "\"subfolder\", \"name\", \"items\"}.",
    "Nothing is written to any file.",
};

constexpr std::array<Option, 2> rewriteOptions = {{
    {"output", 'o', "OUT", WordKind::projectFile, {},
        "Write to OUT and leave FILE as it is. An OUT that exists is replaced. The paths of the drawings "
        "are written relative to the folder of OUT."},
    {"absolute", '\0', {}, {}, {}, "Write the full paths of the drawings, in upper case."},
}};

constexpr std::array<Text, 4> rewriteText = {
    "Reads a project file and writes it again in its canonical form: sections in order, names of "
    "subfolders in upper case, paths with \"\\\" and relative to the folder of the project file where "
    "they can be. What `kqp check` reports as dropped is not in the file any more.",
    "The file keeps its encoding. It is replaced in one step: after a failure, a crash or a full disk "
    "the old file is there, whole. A file that another program changes meanwhile is not overwritten.",
    "With `--absolute` the paths are put in upper case. They still open on a file system where case "
    "counts, because a name that does not exist exactly so is looked up without regard to case, but how "
    "the names were spelled is lost from the file.",
    "Default drawing settings that the file did not have are written with their default values, except "
    "SHEET and SHEETDWGNAME, which belong to single drawings and are never written. With `-o` the "
    "identifiers that a companion store gives the drawings stay behind.",
};

constexpr std::array<Text, 2> equalText = {
    "Compares two projects: descriptions, settings, and the tree of subfolders and drawings in its "
    "order. Encoding, line ends and the spelling of paths that lead to the same place do not count; the "
    "case of names and texts does, except in default drawing settings. Nothing is printed, and nothing "
    "is written to any file.",
    "Drawings are compared by their full paths. Copies of one project file in different folders "
    "therefore differ when they name drawings relative to their folder. The identifiers that a companion "
    "store beside the project gives its drawings count, too. Symbolic links are not followed in them.",
};

constexpr std::array<Text, 2> checkText = {
    "Prints what reading a project file silently drops, repairs, or takes differently from what somebody "
    "may have meant, as `FILE:LINE: message`, in the order of the lines.",
    "Nothing is printed when there is nothing of the kind. Nothing is written to any file.",
};

constexpr std::array<Text, 3> lockStatusText = {
    "Prints who has a file locked, as one JSON object in one line: {\"number\", \"name\", \"holder\", "
    "\"machine\", \"time\"}. The texts are empty when there is no holder. A file is locked by a lock file "
    "beside it, named like the file with \".FLL\" behind it.",
    "Number and name are 0 `lockInvalid` (the path is too short to be that of a file), 1 `lockNone` (nobody "
    "has it), 2 `lockMine` (this user has it on this computer), 3 `lockOther` (somebody else has it, or "
    "this user on another computer), 4 `lockUnreadable` (a lock file that does not say who), 5 "
    "`lockReadOnly` (the file is read-only, locked or not), 6 `lockMissing` (there is no such file), or 7 "
    "`lockFolderReadOnly` (nobody has it, and its folder cannot be written).",
    "A lock counts as long as the process that made it lives. Asking removes a lock file that an ended "
    "process left behind; nothing else is written.",
};

constexpr std::array<Option, 1> watchOptions = {{
    {"json", '\0', {}, {}, {},
        "Print each event as one JSON object in a line: {\"event\", \"details\"}, with a list of texts as "
        "the details. Paths in it have \"\\\" between their components."},
}};

constexpr std::array<Text, 5> watchText = {
    "Opens a project and prints what other programs do to it, one event a line, at once, until SIGINT "
    "(Ctrl-C) or SIGTERM ends it, which is success. A line is the event's name and its details with tabs "
    "between them: the full path of the project, then what else it concerns. Control characters in names "
    "are shown escaped.",
    "The first line is `onProjectOpen`; whatever happens later is noticed. Then come `onProjectReRead` when "
    "the file has changed and was read again (a tenth of a second after the last of several changes), "
    "`onProjectLocked` and `onProjectUnlocked` when its lock file appears and goes, `onProjectTasksAdded` "
    "and `onProjectTasksDeleted`, with the task file, when that does, and `onProjectReadOnlyChanged` with "
    "\"read-only\" or \"writable\".",
    "A file that is deleted, or that cannot be read for a while, stays watched. When it has changed and "
    "cannot be read, standard error says so and no event comes.",
    "Files that the system cannot watch are looked at every two seconds; standard error says so.",
    "Nothing is written to any file.",
};

constexpr std::array<Text, 1> helpText = {"Describes a command, or lists the commands when none is named."};

constexpr std::array<Command, 7> table = {{
    {"show", "print what is in a project file", oneFile, showOptions, showText, {}, runShow},
    {"rewrite", "read a project file and write it again in canonical form", oneFile, rewriteOptions,
        rewriteText, {}, runRewrite},
    {"equal", "tell by the exit code whether two projects are equal", twoFiles, {}, equalText,
        "the projects differ", runEqual},
    {"check", "report what reading a project file drops or repairs", oneFile, {}, checkText,
        "there is something to report", runCheck},
    {"lock-status", "tell who has a file locked", oneFileOfAnyKind, {}, lockStatusText,
        "this user cannot work on the file", runLockStatus},
    {"watch", "print what happens to a project, as it happens", oneFile, watchOptions, watchText, {},
        runWatch},
    {"help", "describe a command", maybeCommand, {}, helpText, {}, runHelp},
}};

constexpr std::array<Option, 2> programOptions = {{
    {"help", 'h', {}, {}, {}, "Print a description of the program or, behind a command, of the command."},
    {"version", '\0', {}, {}, {}, "Print the version of the program."},
}};

constexpr std::array<Text, 2> programText = {
    "Looks at, compares, checks, rewrites and watches project files (`*.kqp`) of the electrical design "
    "package, for scripts, continuous integration and version control.",
    "Files are given by the names that the machine's other programs use; a name that does not exist is "
    "looked for in letters of another case. A project file may be UTF-8, UTF-16 with a byte-order mark, "
    "or Windows-1252. Words behind `--` are never taken for options.",
};

constexpr std::array<Example, 5> examples = {{
    {"Print the drawings' names that a project lists at its top level:",
        "kqp show --json plant.kqp | jq -r '.items[].file // empty'"},
    {"Fail a build when a project file has something that readers drop:", "kqp check plant.kqp"},
    {"Let Git show changes of project files readably; the first line stands in .gitattributes:",
        "*.kqp diff=kqp\ngit config diff.kqp.textconv 'kqp show'"},
    {"Move a project file to another folder, its drawings staying where they are:",
        "kqp rewrite plant.kqp -o ../moved/plant.kqp"},
    {"Check a project file whenever it has changed:",
        "kqp watch plant.kqp | while read -r event; do kqp check plant.kqp; done"},
}};

constexpr ProgramText programEntry = {"kqp", KQP_VERSION,
    "look into, compare, check, rewrite and watch project files", programText, programOptions, examples};

} // namespace

const ProgramText& program() {
    return programEntry;
}

std::span<const Command> commands() {
    return table;
}

const Command* findCommand(std::string_view name) {
    const auto hit =
        std::find_if(table.begin(), table.end(), [name](const Command& c) { return c.name == name; });
    return hit == table.end() ? nullptr : &*hit;
}

} // namespace kqp
