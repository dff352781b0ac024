#pragma once

#include <string>

namespace qor {

constexpr const char* tablaZDeNuevo = "ZDATAERRORS";

// The option controls that belong to a specification, under the controls' names, with the values of a new specification. A check
// box is 1 for set and 0 for clear. Of a group of radio buttons one is always on; a pair is kept as its first button.
struct Opciones {
    // Input
    bool ClienteOp = true;  // else ServidorOp
    bool AnchoFijo = true;  // else DelimTab
    int TablaCh = 0;
    int FileParameterCh = 1;
    int AddF4 = 0;
    std::string ArchivoFuente;
    bool MultipleFilesOption = true;  // else OneFileOption
    std::string Identificadores;

    // Posting
    int CallTransaction = 0;
    int SafeCallTransactionCheck = 1;
    int ModeAsParameter = 1;
    char Modo = 'A';  // AOption, NOption or EOption
    int CommitCheck = 1;
    bool GeneracionAutomatica = true;  // else GeneracionManual
    std::string NombreManual;
    bool ProcesarTodoOpt = true;  // else ProcesarParteOpt
    std::string SpaceCode;

    // Error handling
    int ErrorHandlingCheck = 0;
    std::string TablaZ = tablaZDeNuevo;
    std::string ProgID;

    // Banner of the report
    int DiaCheck = 1;
    int QORCheck = 1;
    int ArchivosCheck = 1;
    int TCodeCheck = 1;
    int StatusCheck = 1;

    // Documentation
    std::string Functional;
    std::string Technical;
    std::string Description;
    std::string Notes;
    std::string DescripcionStatus;
    int HScroll1 = 0;  // per cent
    std::string ModuleCombo;
    std::string PrioridadCombo;

    int Autofill = 1;
    std::string Programa;  // output file

    bool ServidorOp() const { return !ClienteOp; }
    bool DelimTab() const { return !AnchoFijo; }
    bool OneFileOption() const { return !MultipleFilesOption; }
    bool GeneracionManual() const { return !GeneracionAutomatica; }

    // The input is a database table of the server, read by native SQL.
    bool EntradaDeTabla() const { return TablaCh == 1 && ServidorOp(); }
};

}  // namespace qor
