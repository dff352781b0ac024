#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "fuzz/require.h"
#include "practice/run.h"

// Runs a report of any kind on a practice system in memory, and asks of the run what holds for all of them.
namespace qor {

class CorridaCualquiera : public VistaDeCorrida, public abap::SalidaDeLista {
public:
    // `archivo` is what every file of the report holds.
    CorridaCualquiera(std::string_view reporte, const std::filesystem::path& archivo) {
        lineas_ =
            static_cast<int>(std::count(reporte.begin(), reporte.end(), '\n') + std::count(reporte.begin(), reporte.end(), '\r')) +
            1;
        Curso curso(*this, {}, {{2, {}}});
        OpcionesDeSistema opciones;
        opciones.catalogo = "none";
        for (const char* nombre : {"FILE", "FILE_1", "SLOOP_1", "SLOOP_2", "f"}) opciones.archivos.push_back({nombre, archivo});
        opciones.guardaSesiones = false;
        SistemaDePractica sistema(opciones, curso, curso);
        PedidoDeCorrida pedido;
        pedido.reporte = reporte;
        pedido.limite = limite;
        const bool bien = Correr(pedido, sistema, curso, *this, *this);
        const auto& cuenta = curso.Cuenta();
        Exigir(cuenta.fallados <= cuenta.registros, "no more records fail than there are");
        Exigir(!bien || (cuenta.registros > 0 && cuenta.fallados == 0), "a run is right with records, none of which failed");
        Exigir(corrio_ || !bien, "a run that is right has run");
    }

    void Linea(std::string_view linea) override {
        Exigir(linea.size() <= anchoDeLista && !linea.ends_with(' '), "a line of a list has its width, and no blanks behind it");
    }
    void FaltaDePrograma(const abap::FaltaDePrograma& falta, const OrigenDeLinea& /*origen*/) override {
        Exigir(falta.linea >= 1 && falta.linea <= lineas_ && falta.columna >= 1, "a fault lies in the report");
        Exigir(!falta.texto.empty() && !corrio_, "a fault is told, and nothing was run");
    }
    void Empieza(abap::Ejecucion& /*ejecucion*/) override { corrio_ = true; }
    void Termina(abap::Ejecucion& /*ejecucion*/) override {}
    void Volcado(std::size_t /*registro*/, const VolcadoDicho& volcado, const OrigenDeLinea& /*origen*/) override {
        Exigir(!volcado.nombre.empty() && volcado.linea >= 0 && volcado.linea <= lineas_, "a short dump has a name and a line");
    }
    void Rechaza(const std::string& /*texto*/) override {}
    void Falla(const FalloDeEjecucion& /*fallo*/) override {}
    void SinRegistro(std::string_view /*tabla*/, std::size_t perdidas, std::size_t todas) override {
        Exigir(perdidas > 0 && perdidas <= todas, "of the lines of a table some belong to no record");
    }
    void Resumen(const CuentaDeCorrida& /*cuenta*/) override {}
    void Falla(const FalloDeRegistro& /*fallo*/) override {}
    void Mensaje(std::size_t /*registro*/, char /*tipo*/, std::string_view /*texto*/) override {}
    void ArchivoSinLeer(std::string_view /*nombre*/, std::string_view /*motivo*/) override {}
    void Aviso(std::string_view /*texto*/) override {}
    bool Avanza(const CuentaDeCorrida& cuenta) override { return cuenta.registros >= registros; }

private:
    static constexpr std::int64_t limite = 20'000;  // statements without progress
    static constexpr std::size_t registros = 50;
    static constexpr std::size_t anchoDeLista = 255;

    int lineas_ = 0;
    bool corrio_ = false;
};

}  // namespace qor
