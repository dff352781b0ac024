#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "abap/surroundings.h"

// Surroundings of a report that note what they are asked, as texts, and answer what they were given.
namespace qor::abap {

class DiccionarioDePrueba : public Diccionario {
public:
    DiccionarioDePrueba();

    const Estructura& BuscarEstructura(const NombreUsado& nombre) override;
    TipoDeCampo BuscarCampo(std::string_view estructura, std::string_view componente) override;
    std::optional<TipoDeCampo> BuscarElemento(std::string_view) override { return std::nullopt; }
    bool EsTabla(std::string_view nombre) override { return nombre == "ZT"; }

private:
    std::map<std::string, Estructura, std::less<>> estructuras_;
};

using FilasDePrueba = std::vector<std::vector<ValorDeBase>>;

class BaseDePrueba : public BaseDeDatos {
public:
    std::unique_ptr<FilasDeBase> Seleccionar(const ConsultaDeBase& consulta) override;
    bool Insertar(const Estructura& tabla, std::span<const ValorDeBase> fila) override;
    std::int64_t Actualizar(const std::string& tabla, std::span<const AsignacionDeBase> cambios,
                            const CondicionDeBase& donde) override;
    std::int64_t ActualizarFila(const Estructura& tabla, std::span<const ValorDeBase> fila) override;
    std::int64_t Borrar(const std::string& tabla, const CondicionDeBase& donde) override;
    std::int64_t BorrarFila(const Estructura& tabla, std::span<const ValorDeBase> fila) override;
    std::unique_ptr<FilasDeBase> SeleccionarNativo(const std::string& texto, std::span<const ValorDeBase> valores) override;
    void Confirmar() override { pedidos.push_back("COMMIT"); }
    void Deshacer() override { pedidos.push_back("ROLLBACK"); }

    std::vector<std::string> pedidos;
    std::deque<FilasDePrueba> respuestas;  // of SELECT, each once
    std::deque<std::int64_t> cambios;      // rows that a change meets, each once; else 1

private:
    std::unique_ptr<FilasDeBase> Responder();
    std::int64_t Cambios();
};

class ArchivosDePrueba : public Archivos {
public:
    bool Abrir(std::string_view nombre, Modo modo, bool texto) override;
    bool Leer(std::string_view nombre, std::string& linea, std::size_t largo) override;
    void Escribir(std::string_view nombre, std::string_view linea) override;
    void Cerrar(std::string_view nombre) override { pedidos.push_back("CLOSE " + std::string(nombre)); }
    bool Borrar(std::string_view nombre) override;

    std::vector<std::string> pedidos;
    std::deque<std::string> lineas;
};

class FuncionesDePrueba : public Funciones {
public:
    // Notes the parameters, and gives each one that is written the answer.
    std::string Llamar(const LlamadaAFuncion& llamada) override;

    std::vector<std::string> pedidos;
    std::string excepcion;
};

class TransaccionesDePrueba : public Transacciones {
public:
    ResultadoDeTransaccion Llamar(std::string_view transaccion, const TablaInterna& filas, char modo, char actualizacion) override;

    std::vector<std::string> pedidos;
    ResultadoDeTransaccion resultado;
};

class ProgramasDePrueba : public Programas {
public:
    bool Insertar(std::string_view nombre, std::span<const std::string> lineas) override {
        for (const auto& linea : lineas) pedidos.push_back(std::string(nombre) + ": " + linea);
        return !lineas.empty();
    }

    std::vector<std::string> pedidos;
};

class ListaDePrueba : public SalidaDeLista {
public:
    void Linea(std::string_view linea) override { lineas.emplace_back(linea); }
    std::vector<std::string> lineas;
};

class SeguimientoDePrueba : public Seguimiento {
public:
    bool Registro(std::size_t numero) override {
        registros.push_back(std::to_string(numero));
        return numero != saltado;
    }
    void FinDeRegistros() override { registros.push_back("end"); }
    void Mensaje(char, std::string_view, std::string_view, std::span<const std::string>) override {}
    bool Detener() override { return false; }

    std::vector<std::string> registros;
    std::size_t saltado = 0;
};

struct AlrededoresDePrueba {
    DiccionarioDePrueba diccionario;
    BaseDePrueba base;
    ArchivosDePrueba archivos;
    FuncionesDePrueba funciones;
    TransaccionesDePrueba transacciones;
    ProgramasDePrueba programas;
    ListaDePrueba lista;
    SeguimientoDePrueba seguimiento;
    Entorno entorno{diccionario, base, archivos, funciones, transacciones, programas, lista, seguimiento, {"20240229", "123456"}};
};

}  // namespace qor::abap
