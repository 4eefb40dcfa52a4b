// Numbers of the texts of the properties sheets and their panels, and of the work on settings; the rules are
// those of resources/message_numbers.h. From 2000 on.
#pragma once

namespace ryv::message {

// Titles of the sheets and the names of their pages.
inline constexpr int propertiesProject = 2000;
inline constexpr int propertiesDrawing = 2001;
inline constexpr int overrideReferences = 2002;
inline constexpr int pageSettings = 2003;
inline constexpr int pageComponents = 2004;
inline constexpr int pageWireNumbers = 2005;
inline constexpr int pageCrossReferences = 2006;
inline constexpr int pageStyles = 2007;
inline constexpr int pageDrawingFormat = 2008;

// Titles of panels.
inline constexpr int panelTagFormat = 2020;
inline constexpr int panelTagOptions = 2021;
inline constexpr int panelWireNumberType = 2022;
inline constexpr int panelWireNumberPlacement = 2023;
inline constexpr int panelWireNumberOptions = 2024;
inline constexpr int panelReferenceFormat = 2025;
inline constexpr int panelReferenceOptions = 2026;
inline constexpr int panelReferenceDisplay = 2027;
inline constexpr int panelWireStyle = 2028;
inline constexpr int panelOtherStyles = 2029;
inline constexpr int panelFanStyle = 2030;
inline constexpr int panelScale = 2031;
inline constexpr int panelLadders = 2032;
inline constexpr int panelFormatReferences = 2033;
inline constexpr int panelOrder = 2034;
inline constexpr int panelLayers = 2035;
inline constexpr int panelSheetValues = 2036;
inline constexpr int panelCodes = 2037;
inline constexpr int panelLibraries = 2038;
inline constexpr int panelProjectDescriptions = 2039;
inline constexpr int panelReferenceDefaults = 2040;
inline constexpr int panelOtherProjectSettings = 2041;
inline constexpr int panelDrawing = 2042;
inline constexpr int panelEntry = 2043;

// Buttons that open one of the package's own dialogs, and what these and the panels tell.
inline constexpr int editList = 2060;
inline constexpr int chooseKind = 2061;
inline constexpr int setUpGrid = 2062;
inline constexpr int setUpLayers = 2063;
inline constexpr int formatsByLayer = 2064;
inline constexpr int setUpGap = 2065;
inline constexpr int setUpText = 2066;
inline constexpr int setUpGraphics = 2067;
inline constexpr int setUpTable = 2068;
inline constexpr int lineReferencesTitle = 2069;
inline constexpr int gridReferencesTitle = 2070;
inline constexpr int formatsByLayerForeign = 2071;
inline constexpr int settingNotSet = 2072; ///< in the tooltip of a setting that has no value
inline constexpr int formatsByLayerTitle = 2073;

// Labels of the drawing settings, each at this number and its index; the same for the explanations of those
// that the package does not describe.
inline constexpr int settingLabels = 2100;
inline constexpr int settingExplanations = 2200;
inline constexpr int fillUnused = 2180;

// Choices.
inline constexpr int choiceHorizontal = 2300;
inline constexpr int choiceVertical = 2301;
inline constexpr int choiceByReference = 2302;
inline constexpr int choiceSequential = 2303;
inline constexpr int choiceReferences1 = 2311; ///< the kinds of line references, to 2319
inline constexpr int choiceAllRungs = 2320;
inline constexpr int choiceEveryOtherRung = 2321;
inline constexpr int choiceHorizontalFirst = 2322;
inline constexpr int choiceVerticalFirst = 2323;
inline constexpr int choiceInches = 2324;
inline constexpr int choiceMillimetres = 2325;
inline constexpr int choiceLeadersAsRequired = 2330;
inline constexpr int choiceLeadersAlways = 2331;
inline constexpr int choiceLeadersNever = 2332;
inline constexpr int choiceGap = 2333;
inline constexpr int choiceLoop = 2334;
inline constexpr int choiceNoGap = 2335;
inline constexpr int choiceInLine = 2336;
inline constexpr int choiceAboveWire = 2337;
inline constexpr int choiceBelowWire = 2338;
inline constexpr int choiceAsText = 2340;
inline constexpr int choiceAsGraphics = 2341;
inline constexpr int choiceAsTable = 2342;
inline constexpr int choiceGraphicStyle = 2343;
inline constexpr int choiceContactMap = 2344;
inline constexpr int choiceComma = 2345;
inline constexpr int choiceCommaBlank = 2346;
inline constexpr int choiceSort0 = 2350; ///< the orders in a drawing, to 2358

// Values of projects and of drawings' entries. Labels of miscellaneous settings stand each at 2400 and its
// index.
inline constexpr int librarySchematic = 2401;
inline constexpr int libraryOther = 2402;
inline constexpr int libraryPanel = 2403;
inline constexpr int libraryMenu = 2404;
inline constexpr int graphicalReferences = 2405;
inline constexpr int fillText = 2407;
inline constexpr int referenceSeparator = 2408;
inline constexpr int projectValue = 2409;
inline constexpr int sortReferences = 2428;
inline constexpr int projectLink = 2439;
inline constexpr int projectDescriptions = 2440;
inline constexpr int entryFile = 2450;
inline constexpr int entryProject = 2451;
inline constexpr int entrySection = 2452;
inline constexpr int entrySubSection = 2453;
inline constexpr int entryDescriptions = 2454;
inline constexpr int entryReferenceOnly = 2455;
inline constexpr int explainFolders = 2460;
inline constexpr int explainMenuFile = 2461;
inline constexpr int explainDefaults = 2462;
inline constexpr int explainLink = 2463;
inline constexpr int explainProjectValue = 2464;
inline constexpr int libraryBrowse = 2465;
inline constexpr int explainTagCodes = 2466;
inline constexpr int explainNumberCodes = 2467; ///< in formats of wire numbers and cross-references
inline constexpr int numberingOrderUnset = 2468;

// Warnings beside a control.
inline constexpr int warnEmpty = 2500;
inline constexpr int warnNoNumber = 2501;
inline constexpr int warnNotPositive = 2502;
inline constexpr int warnNotWhole = 2503;
inline constexpr int warnFormatWithoutNumber = 2504;
inline constexpr int warnNotThreeNumbers = 2505;
inline constexpr int warnNotWholeNumbers = 2506;
inline constexpr int warnNoLayer = 2507;
inline constexpr int warnNoLayers = 2508;
inline constexpr int warnFolderMissing = 2509; ///< folder
inline constexpr int warnFileMissing = 2510;   ///< file
inline constexpr int warnUnknown = 2511;       ///< value
inline constexpr int warnDecimalComma = 2512;  ///< the number with a point

// Work on settings: properties, exceptions, applying, pasting, comparing.
inline constexpr int settingsFileRefused = 2800; ///< file
inline constexpr int settingsWorkRefused = 2801; ///< why nothing can be done
inline constexpr int settingsWorkRefusedTitle = 2802;
inline constexpr int propertiesOfProject = 2803;        ///< name of the project
inline constexpr int propertiesOfDrawing = 2804;        ///< name of the drawing
inline constexpr int propertiesNotStoredTitle = 2805;   ///< of the next three, which have Retry and Cancel
inline constexpr int propertiesNotStored = 2806;        ///< file, reason
inline constexpr int propertiesDrawingNotStored = 2807; ///< file and reason
inline constexpr int propertiesProjectClosed = 2808;    ///< name of the project
inline constexpr int drawingNotReadTitle = 2809;
inline constexpr int drawingNotRead = 2810;      ///< file and reason
inline constexpr int othersKeptTitle = 2811;     ///< name of the project or drawing
inline constexpr int othersKept = 2812;          ///< above the names of the values
inline constexpr int keptDescriptionLine = 2813; ///< number of the line
inline constexpr int keptReferenceOnly = 2815;
inline constexpr int propertiesEntryStays = 2816;  ///< file and reason, name of the project
inline constexpr int propertiesEntryGone = 2817;   ///< name of the drawing, name of the project
inline constexpr int drawingOpenedOrClosed = 2818; ///< file
inline constexpr int drawingNotOpen = 2819;        ///< name of the drawing
inline constexpr int checkingSettings = 2820;      ///< of a progress display, as the next two
inline constexpr int applyingSettings = 2821;
inline constexpr int pastingSettings = 2822;
inline constexpr int settingsCancelled = 2823; ///< drawings that were looked at, all
inline constexpr int settingsNoDrawings = 2824;
inline constexpr int settingsSummary = 2825;       ///< drawings that were changed, those that were skipped
inline constexpr int settingsAskApplyTitle = 2826; ///< of settingsAskApply
inline constexpr int settingsAskPasteTitle = 2827; ///< of settingsAskPaste
inline constexpr int settingsCopied = 2828;        ///< name of the drawing
inline constexpr int settingsProjectClosed = 2829; ///< name of the project
inline constexpr int exceptionsNone = 2830;
inline constexpr int exceptionsDiffer = 2831;     ///< above the drawings
inline constexpr int exceptionsNotChecked = 2832; ///< above the reasons, as the others of that kind
inline constexpr int exceptionsOthersSame = 2833;
inline constexpr int drawingWithoutSettings = 2834; ///< file
inline constexpr int exceptionsSetting = 2835;      ///< name, the drawing's value, the project's
inline constexpr int exceptionsEmpty = 2836;        ///< in place of a value
inline constexpr int exceptionsSummary = 2838;  ///< drawings that differ, that do not, that were not checked
inline constexpr int settingsApplied = 2840;    ///< above the drawings
inline constexpr int settingsSkipped = 2842;    ///< above the reasons
inline constexpr int settingsNotWritten = 2843; ///< file
inline constexpr int settingsInOpenDrawings = 2844; ///< above the drawings
inline constexpr int settingsPastedTitle = 2845;
inline constexpr int reportClose = 2846;
inline constexpr int settingsAppliedTitle = 2847;
inline constexpr int settingsAskApply = 2848; ///< name of the project, number of drawings
inline constexpr int settingsAskPaste = 2849; ///< name of the drawing, number of drawings
inline constexpr int compareTitle = 2850;     ///< name of the drawing, name of the project
inline constexpr int compareNoProject = 2851; ///< drawing
inline constexpr int compareNoProjectTitle = 2852;
inline constexpr int compareSetting = 2853; ///< of a column, as the next two
inline constexpr int compareDrawing = 2854;
inline constexpr int compareProject = 2855;
inline constexpr int compareDifferencesOnly = 2856;
inline constexpr int compareSearch = 2857;
inline constexpr int compareCount = 2858;       ///< settings that differ, all
inline constexpr int compareNoneDiffers = 2859; ///< in place of rows, as the next one
inline constexpr int compareNoneFound = 2860;
inline constexpr int compareMeaning = 2861; ///< of a column

// Settings away from their pages.
inline constexpr int settingOnPage = 2870; ///< title of the page, label
inline constexpr int settingYes = 2871;    ///< in place of a check mark, as the next one
inline constexpr int settingNo = 2872;

} // namespace ryv::message
