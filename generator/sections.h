#pragma once

#include <string>
#include <string_view>

#include "generator/generation.h"

// The sections of the report, one unit each, in the order in which `Generar` writes them. A section may end the run with
// ParadaDeGeneracion (its message is still to be shown) or FalloDeEjecucion.
namespace qor {

void EscribirTitulos(Generacion& g);              // banner.cpp: the comment block at the top
void EscribirDeclaraciones(Generacion& g);        // declarations.cpp: REPORT, all global data, the user's declarations
void EscribirPantallaDeSeleccion(Generacion& g);  // selection_screen.cpp: parameters and value helps
void EscribirFlujoPrincipal(Generacion& g);       // main_flow.cpp: START-OF-SELECTION, and TABLE_PROCESSING for a table
void EscribirInsertData(Generacion& g);           // batch_input_forms.cpp
void EscribirOperaciones(Generacion& g);          // operation_forms.cpp: one form for each operation
void EscribirInsertDataErrors(Generacion& g);     // error_forms.cpp
void EscribirDynpro(Generacion& g);               // batch_input_forms.cpp
void EscribirCondCheck(Generacion& g);            // conditions_conversions.cpp
void EscribirOpenGroup(Generacion& g);            // batch_input_forms.cpp
void EscribirConversions(Generacion& g);          // conditions_conversions.cpp
void EscribirTabConversions(Generacion& g);       // conditions_conversions.cpp
void EscribirReadFile(Generacion& g);             // input_forms.cpp
void EscribirStepLoops(Generacion& g);            // step_loop_forms.cpp: TABFORM_n, SL_PROCESSING_n, SL_SEND
void EscribirUserForm(Generacion& g);             // user_form.cpp
void EscribirAddStructures(Generacion& g);        // error_forms.cpp

// Pieces that sections write inside one another.
void EscribirTableProcessing(Generacion& g);                                    // input_forms.cpp
void Generate_Insert(Generacion& g, std::string_view sangria);                  // main_flow.cpp: the calls of the operation forms
void ImprimirMensajesBDC(Generacion& g);                                        // batch_input_forms.cpp
void InsercionITABDataErrors(Generacion& g);                                    // error_forms.cpp
void ImprimirElseOldBatch(Generacion& g);                                       // error_forms.cpp
void ImprimirMensajesManejoErrores(Generacion& g);                              // error_forms.cpp
void RecolectarMensajes(Generacion& g);                                         // error_forms.cpp: messages of CALL TRANSACTION
void EscribirCabezaBAPI(Generacion& g, const std::string& codigo, int numero);  // bapi_forms.cpp
void EscribirFilaBAPI(Generacion& g, int fila, bool& enCadena);                 // bapi_forms.cpp
void CerrarBAPI(Generacion& g, const std::string& codigo);                      // bapi_forms.cpp

// Moves go on the next line where they would be too long for one. In a chain "MOVE:" the ending follows from the line behind.
void EscribirMoveEnCadena(Generacion& g, const std::string& sangria, const std::string& valor, const std::string& campo);
void EscribirMoveSuelto(Generacion& g, const std::string& sangria, const std::string& valor, const std::string& campo);

// The name of a BAPI's form is cut so that it keeps within the 30 characters of ABAP with the operation's number behind it.
constexpr std::size_t largoFormaBAPI = 26;

// The report of success with the layout of the Z table, shown at the end of a run.
std::string TextoDeTablaZ(const Generacion& g);  // error_forms.cpp

// The ABAP value that a cell of the main record stands for. The cell is not empty.
std::string ValorDeCampo(const Generacion& g, std::string_view celda);  // operation_forms.cpp

}  // namespace qor
