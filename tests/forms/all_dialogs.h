#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "app/FormAbout.h"
#include "app/FormDatos.h"
#include "app/FormDirectorios.h"
#include "app/FormEjemplos.h"
#include "app/FormEnsayo.h"
#include "app/FormLenguaje.h"
#include "app/FormSelectLanguage.h"
#include "app/language.h"
#include "app/start_up.h"
#include "bapi/FormBAPI.h"
#include "bapi/FormBAPIFields.h"
#include "bapi/FormTrans.h"
#include "dataset/FormBDCEditor.h"
#include "editor/FormABAPWindow.h"
#include "editor/FormConditions.h"
#include "editor/FormConsultaOrigen.h"
#include "editor/FormConsultadeEliminar.h"
#include "editor/FormDataSource.h"
#include "editor/FormMostrarTextos.h"
#include "editor/FormNotas.h"
#include "editor/FormNuevasVariables.h"
#include "print/FormPreview.h"
#include "print/FormPrinters.h"
#include "sap/FormABAP.h"
#include "sap/FormImport.h"
#include "sap/FormLogon.h"
#include "tests/support/scripted_service.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {

const std::string datos = QOR_TEST_SOURCE_DIR "/data";

// Every dialog, made with the words of a language.
struct TodosLosDialogos {
    TodosLosDialogos(const std::filesystem::path& archivoDeIdiomas, std::string idioma) {
        RecuperarIdioma(prueba.textos, archivoDeIdiomas, idioma);
        prueba.Archivo({"KUNNR|10", "MATNR|18"});
        prueba.Transaccion({"TRANS|VA01", "SAPMV45A|4001", "||RV45A-MABNR(1)|MATNR|!1 1!2F.TXT!30!4!51!65!7,MATNR"});
        prueba.ventana.documento.especificacion.OrigenUsuario = true;
    }

    std::vector<std::unique_ptr<QDialog>> Crear() {
        Ventana& e = prueba.ventana;
        const TextosIdioma& t = prueba.textos;
        Vista& v = prueba.vista;
        const AbrirAyuda ayuda = [](int, QWidget*) {};
        std::vector<std::unique_ptr<QDialog>> todos;
        const auto agregar = [&](auto* dialogo) { todos.emplace_back(dialogo); };
        agregar(new FormNotas(e, {Tabla::Archivo, 0}, ayuda, nullptr));
        agregar(new FormNotas(e, {Tabla::Transaccion, 2}, ayuda, nullptr));
        agregar(new FormConditions(e, ayuda, nullptr));
        agregar(new FormABAPWindow(e, 0, datos, ayuda, nullptr));
        agregar(new FormMostrarTextos(t, "REPORT X.", nullptr));
        agregar(new FormNuevasVariables(e, {}, ayuda, nullptr));
        agregar(new FormDataSource(e, preferencias, AbrirOrigen(e, preferencias).value(), {}, ayuda, nullptr));
        agregar(new FormConsultaOrigen(t, nullptr));
        agregar(new FormConsultadeEliminar(t, nullptr));
        agregar(new FormLenguaje(t, v, datos + "/language.txt", "English", nullptr));
        agregar(new FormSelectLanguage(t, datos + "/language.txt", nullptr));
        agregar(new FormDirectorios(t, v, ajustes, nullptr));
        agregar(new FormAbout(t, QStringLiteral("1.2.3"), nullptr));
        agregar(new FormPreview(t, v, "BEGIN OF", ayuda, nullptr));
        agregar(new FormPrinters(t, v, {}, {}, nullptr));
        agregar(new FormBAPI(prueba.documento, t, v, {.ArchivoBAPI = catalogo, .directorio = "", .imprimir = {}}, nullptr));
        agregar(new FormBAPIFields(t, nullptr));
        agregar(new FormTrans(t, {}, nullptr));
        agregar(new FormBDCEditor(t, v, ayuda, nullptr));
        agregar(new FormABAP(sesion, t, v, "ZNAME", nullptr));
        // The preview wants records from a file.
        e.documento.especificacion.OrigenUsuario = false;
        agregar(new FormDatos(e, {.ayuda = ayuda, .recordado = {}, .recordar = {}, .memoria = {}, .alCambiar = {}}, {}, nullptr));
        e.documento.especificacion.OrigenUsuario = true;
        agregar(new FormLogon(eleccion, "practice.sqlite", t, v, nullptr));
        agregar(new FormEjemplos(t, {{.carpeta = "mm01", .archivo = "a.qor", .frases = {{"en", "One."}}}}, "copies", nullptr));
        agregar(new FormEnsayo({.textos = t,
                                .vista = v,
                                .documento = prueba.documento,
                                .generacion = {},
                                .sistema = {},
                                .archivoPropio = {},
                                .mandar = {},
                                .recordado = [](const std::string&) { return std::filesystem::path(); },
                                .recordar = {},
                                .irA = {},
                                .verDatos = {},
                                .valoresPropios = {},
                                .ayuda = ayuda,
                                .memoria = {}}));
        return todos;
    }

    VentanaDePrueba prueba;
    Preferencias preferencias;
    std::filesystem::path catalogo = datos + "/BAPI46C";
    AjustesDelPrograma ajustes;
    FormularioImport importacion;
    SesionSAP sesion = SesionConectada(std::make_shared<Guion>());
    EleccionDeLogon eleccion;
};

}  // namespace qor::pruebas
