#pragma once

// The tests that can't hold on Windows, each with its reason. What is named here is compiled only where it isn't defined.
#ifdef _WIN32
// A test in the same process forks; Windows has nothing of the kind.
#define LEFT_OUT_Copias_AKilledProgramsWorkComesBackWhole
#define LEFT_OUT_Copias_RestoredWorkNeverTakesADocumentFromAnother
#define LEFT_OUT_KilledWriter_LeavesTheOldFileOrTheNewOne
#define LEFT_OUT_PruebaDeBase_AKilledProcessLeavesTheLastFinishedUnit
#define LEFT_OUT_PruebaDeBase_AFullDiskIsADump
// Another user without rights opens the file, in a fork.
#define LEFT_OUT_PruebaDeBase_AFileOfTheFirstVersionIsUpgraded
// Permissions and owners of POSIX, or symbolic links, which need a privilege on Windows.
#define LEFT_OUT_NewFile_KeepsLinksAndPermissions
#define LEFT_OUT_NewFile_KeepsTheOwner
#define LEFT_OUT_NewFile_LeavesAUsersFilesAlone
#define LEFT_OUT_NewFile_WorkFileIsTheUsersAlone
#define LEFT_OUT_Session_FilesOfAMomentAreTheUsersAlone
#define LEFT_OUT_NewFile_OnlyAMissingFileIsAbsent
#define LEFT_OUT_InputSplit_ReasonsAndLongLines
#define LEFT_OUT_DataDirectory_IsTheInstalledOneOrThatOfTheTreeByTheLanguageFile
#define LEFT_OUT_PracticeFiles_AreThoseOfTheDocumentAndThoseThatAreNamed
#define LEFT_OUT_PracticeFiles_AreWrittenInTheFolderOfTheDocumentOnly
#define LEFT_OUT_Publish_AConnectedGenerationEndsInTheSystem
#define LEFT_OUT_Report_TheDesktopKeepsReportsBesideTheirDocuments
// Paths as POSIX writes them, with "/" alone.
#define LEFT_OUT_Paths_AreMadeAbsoluteByTheirText
#define LEFT_OUT_SettingsPath_TakesTheFirstDirectoryThatApplies
#define LEFT_OUT_Settings_AreSavedInTheirOrderAndReadBack
// Names of files that are no UTF-8.
#define LEFT_OUT_CheckAll_SARIFHoldsWhatItsSchemaAsksFor
#define LEFT_OUT_CheckAll_WorkflowCommandsAreEscaped
// The file of the practice system is deleted while it is open, which Windows refuses.
#define LEFT_OUT_PruebaDeServicio_ItSeesWhatOthersDoBetweenTwoCalls
#define LEFT_OUT_Publish_OkAsksTheSystemAboutTheName
#define LEFT_OUT_Widths_OnLineTheWholeWayIsOneStep
// Of the desktop program alone, which is not there: its file type, and its copies of the examples.
#define LEFT_OUT_FileType_IsRegisteredOnceWhereNothingIsInstalled
#define LEFT_OUT_ExampleCopies_ACopyTakesAFreeNameAndCanBeChanged
// An expression that GoogleTest takes from POSIX.
#define LEFT_OUT_Run_StatusListAndFailures
// Pipes and devices that have a name in the file system.
#define LEFT_OUT_NewFile_WritesPipesAndDevicesWhereTheyStand
#define LEFT_OUT_PruebaDeDatos_OnlyRegularFilesAreScanned
// A shell of POSIX sets the descriptors and limits of the program.
#define LEFT_OUT_Process_OutputThatCanNotBeWrittenIsAFailure
#define LEFT_OUT_Process_ClosedDescriptorsAreNoFilesOfTheCommand
#define LEFT_OUT_Process_AFileOverTheLimitIsAFailedCall
#endif
