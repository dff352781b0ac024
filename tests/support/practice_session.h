#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/data_directory.h"
#include "app/practice_file.h"
#include "app/sap_connection.h"
#include "base/text.h"
#include "practice/queue.h"
#include "practice/stored_recordings.h"
#include "sap/remote_reports.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {

// A session that is logged on to a practice system in a file of its own, with the query reports that ship.
struct SesionDePractica {
    DirectorioTemporal directorio;
    std::filesystem::path temporal = directorio / "temporal";  // where files of a moment go
    OpcionesDeSistema opciones;
    SesionSAP sesion;
    VentanaDePrueba prueba;

    // `catalogo` and `anchos` are what a catalogue and a file of widths hold.
    explicit SesionDePractica(std::string_view catalogo = {}, std::string_view anchos = {}) {
        std::filesystem::create_directory(temporal);
        opciones.archivo = directorio / "s";
        opciones.diccionario = DirectorioDeDatos() / nombreDeDiccionario;
        opciones.catalogo = directorio.Escribir("catalogue", catalogo);
        opciones.anchos = directorio.Escribir("widths", anchos);
        Entrar();
    }

    bool Entrar() {
        sesion = NuevaSesionDePractica({}, DirectorioDeDatos(), opciones);
        sesion.DirectorioTemporal = temporal;
        Preferencias preferencias;
        return Logon_Click(sesion, {}, preferencias, prueba.textos, prueba.vista);
    }

    // Runs a report, whose statements stand on lines of their own. Its list, each line behind "|", or the reason why there is none.
    std::string Correr(const std::string& sentencias) {
        LineasABAP reporte = {"REPORT Z."};
        for (const auto linea : PartirEnLineas(sentencias)) reporte.emplace_back(linea);
        const auto lista = EjecutarReporte(sesion, reporte);
        if (!lista) return sesion.Motivo;
        std::string texto;
        for (const auto& linea : *lista) texto += "|" + linea;
        return texto;
    }

    // What another program does to the system, as a unit of work.
    template <typename Hacer>
    auto OtroPrograma(Hacer hacer) {
        BaseDePractica base(opciones.archivo);
        auto hecho = hacer(base);
        base.TerminarUnidad();
        return hecho;
    }
    bool PonerPrograma(std::string_view nombre, const std::vector<std::string>& lineas = {}) {
        return OtroPrograma([&](BaseDePractica& base) { return ProgramasDePractica(base).Insertar(nombre, lineas); });
    }
    // The source of a program; empty where there is none.
    std::string Programa(std::string_view nombre) {
        const auto programa = OtroPrograma([&](BaseDePractica& base) { return ProgramasDePractica(base).Buscar(nombre); });
        return programa ? programa->texto : std::string();
    }
    // A recording, and a session of the transaction MM01; the id of each.
    std::string PonerGrabacion(const std::string& nombre, const std::string& texto) {
        return OtroPrograma([&](BaseDePractica& base) {
            GrabacionesDePractica(base).Poner(nombre, texto);
            return GrabacionesDePractica(base).Todas().back().qid;
        });
    }
    std::string PonerSesion(std::string_view grupo, const std::vector<FilaDeBDC>& filas) {
        return OtroPrograma([&](BaseDePractica& base) {
            ColaDePractica cola(base, {"20260102", "030405"});
            auto qid = cola.Abrir(grupo, usuarioDePractica, "X");
            cola.Insertar("MM01", filas);
            cola.Cerrar();
            return qid;
        });
    }
};

}  // namespace qor::pruebas
