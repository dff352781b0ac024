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
// Pipes and devices that have a name in the file system.
#define LEFT_OUT_NewFile_WritesPipesAndDevicesWhereTheyStand
#define LEFT_OUT_PruebaDeDatos_OnlyRegularFilesAreScanned
// A shell of POSIX sets the descriptors and limits of the program.
#define LEFT_OUT_Process_OutputThatCanNotBeWrittenIsAFailure
#define LEFT_OUT_Process_ClosedDescriptorsAreNoFilesOfTheCommand
#define LEFT_OUT_Process_AFileOverTheLimitIsAFailedCall
#endif
