// Numbers of the texts of the dialogs that make projects and drawings; the rules are those of
// resources/message_numbers.h. From 3000 on.
#pragma once

namespace ryv::message {

// The dialog for a new project.
inline constexpr int newProjectTitle = 3000;
inline constexpr int newProjectName = 3001;
inline constexpr int newProjectFolder = 3002;
inline constexpr int newProjectBrowseFolder = 3003;
inline constexpr int newProjectOwnFolder = 3004;
inline constexpr int newProjectSettings = 3005;
inline constexpr int newProjectBrowseSettings = 3006;
inline constexpr int newProjectLines = 3007;
inline constexpr int newProjectEditLines = 3008;
inline constexpr int newProjectProperties = 3009;
inline constexpr int newProjectPath = 3010;
inline constexpr int newProjectChooseFolder = 3011;   ///< title of a file dialog
inline constexpr int newProjectChooseSettings = 3012; ///< title of a file dialog
inline constexpr int newProjectSettingsHint = 3013;
inline constexpr int newProjectValue9 = 3014;
inline constexpr int newProjectValue9Hint = 3015;

// What keeps it open, and what becomes of the project.
inline constexpr int newProjectNameMissing = 3020;
inline constexpr int newProjectExists = 3021;          ///< path
inline constexpr int newProjectPlaceInvalid = 3022;    ///< folder
inline constexpr int newProjectSettingsMissing = 3023; ///< path
inline constexpr int newProjectNoSource = 3024;
inline constexpr int newProjectFolderNotMade = 3025; ///< path, reason
inline constexpr int newProjectNotRead = 3026;       ///< path of the source, reason
inline constexpr int newProjectNotWritten = 3027;    ///< path, reason
inline constexpr int newProjectNotOpened = 3028;     ///< path

// The dialog for a new drawing.
inline constexpr int newDrawingTitle = 3100;
inline constexpr int newDrawingName = 3101;
inline constexpr int newDrawingFolder = 3102;
inline constexpr int newDrawingBrowseFolder = 3103;
inline constexpr int newDrawingTemplate = 3104;
inline constexpr int newDrawingBrowseTemplate = 3105;
inline constexpr int newDrawingDescription1 = 3106;
inline constexpr int newDrawingDescription2 = 3107;
inline constexpr int newDrawingDescription3 = 3108;
inline constexpr int newDrawingReferenceOnly = 3109;
inline constexpr int newDrawingProperties = 3110;
inline constexpr int newDrawingPath = 3111;
inline constexpr int newDrawingChooseFolder = 3112;   ///< title of a file dialog
inline constexpr int newDrawingChooseTemplate = 3113; ///< title of a file dialog
inline constexpr int newDrawingTemplateHint = 3114;

// Its panels.
inline constexpr int codesPanelTitle = 3120;
inline constexpr int codesPanelProject = 3121;
inline constexpr int codesPanelInstallation = 3122;
inline constexpr int codesPanelLocation = 3123;
inline constexpr int codesPanelLookUp = 3124;
inline constexpr int codesPanelFound = 3125; ///< installations, locations
inline constexpr int sheetPanelTitle = 3130;
inline constexpr int sheetPanelSheet = 3131;
inline constexpr int sheetPanelDrawing = 3132;
inline constexpr int sheetPanelSection = 3133;
inline constexpr int sheetPanelSubSection = 3134;

// What keeps it open.
inline constexpr int newDrawingNameMissing = 3140;
inline constexpr int newDrawingExists = 3141;          ///< path
inline constexpr int newDrawingPlaceInvalid = 3142;    ///< folder, or path where that is empty
inline constexpr int newDrawingTemplateMissing = 3143; ///< path
inline constexpr int newDrawingFolderMissing = 3144;   ///< folder

// What becomes of the drawing.
inline constexpr int newDrawingNotLocked = 3150;     ///< why not: sentences
inline constexpr int newDrawingProjectClosed = 3151; ///< path of the drawing
inline constexpr int newDrawingNotCopied = 3152;     ///< template, path of the drawing, reason
inline constexpr int newDrawingNotRead = 3153;       ///< what the host says
/// A settings block came with the template; Yes and No.
inline constexpr int newDrawingReplaceSettings = 3154; ///< path of the template
inline constexpr int newDrawingNotSet = 3155;          ///< path of the drawing
inline constexpr int newDrawingNotSaved = 3156;        ///< what the host says
inline constexpr int newDrawingNotOpened = 3157;       ///< path of the drawing
inline constexpr int newDrawingNotAdded = 3158;        ///< path of the drawing, name of the project
inline constexpr int newDrawingNotWritten = 3159;      ///< path of the drawing, file, reason

} // namespace ryv::message
