#pragma once

#include "abap/check/phrase.h"

// The forms of the statements. Each function reads one behind its first word, tells its first fault and answers whether it has
// none.
namespace qor::abap {

// ---- Declarations ----

bool LeerDatos(Frase& f);  // DATA, CONSTANTS, STATICS, TYPES
bool LeerTABLES(Frase& f);
bool LeerPARAMETERS(Frase& f);
bool LeerSELECT_OPTIONS(Frase& f);
bool LeerRANGES(Frase& f);
bool LeerPantalla(Frase& f);  // SELECTION-SCREEN
bool LeerINCLUDE(Frase& f);

// Records that are still open where no declaration can go on.
void CerrarRegistros(Contexto& contexto);

// ---- FORMs and calls ----

bool LeerFORM(Frase& f);
bool LeerPERFORM(Frase& f);
bool LeerCALL(Frase& f);

// Calls of FORMs that aren't there, or of others than they were meant for.
void RevisarLlamadas(Contexto& contexto);
void PedirForma(Contexto& contexto, const Palabra& nombre);

// ---- Control ----

bool LeerAsignacion(Frase& f);
bool LeerDO(Frase& f);
bool LeerWHEN(Frase& f);
bool LeerCHECK(Frase& f);
bool LeerEXIT(Frase& f);
bool LeerAT(Frase& f);

// ---- Values ----

bool LeerCOMPUTE(Frase& f);
bool LeerMOVE(Frase& f);
bool LeerCLEAR(Frase& f);
bool LeerFREE(Frase& f);
bool LeerWRITE(Frase& f);
bool LeerCONCATENATE(Frase& f);
bool LeerSPLIT(Frase& f);
bool LeerSHIFT(Frase& f);
bool LeerTRANSLATE(Frase& f);
bool LeerCONDENSE(Frase& f);
bool LeerOVERLAY(Frase& f);
bool LeerREPLACE(Frase& f);
bool LeerSEARCH(Frase& f);
bool LeerCuenta(Frase& f, Clave enlace);  // ADD, SUBTRACT, MULTIPLY, DIVIDE
bool LeerDESCRIBE(Frase& f);
bool LeerASSIGN(Frase& f);
bool LeerDataset(Frase& f);  // OPEN, CLOSE, TRANSFER

// ---- Internal tables ----

bool LeerLOOP(Frase& f);
bool LeerREAD(Frase& f);  // of a data set, too
bool LeerAPPEND(Frase& f);
bool LeerCOLLECT(Frase& f);
bool LeerSORT(Frase& f);
bool LeerREFRESH(Frase& f);

// ---- Tables of either kind ----

bool LeerSELECT(Frase& f);
bool LeerINSERT(Frase& f);
bool LeerUPDATE(Frase& f);
bool LeerMODIFY(Frase& f);
bool LeerDELETE(Frase& f);

}  // namespace qor::abap
