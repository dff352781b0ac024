#pragma once

#include <memory>
#include <string>

#include "sap/nwrfc_api.h"
#include "sap/service.h"

namespace qor::nwrfc {

// The loaded library and its functions.
struct Biblioteca {
    // Loads the library: from `ruta`, a path of the model, or by the search of the system's loader when that is empty. Throws
    // FalloDelServicio when it is missing, or lacks a function that is needed.
    static std::shared_ptr<const Biblioteca> Cargar(const std::string& ruta);

    std::shared_ptr<void> modulo;
    RfcOpenConnection* OpenConnection = nullptr;
    RfcCloseConnection* CloseConnection = nullptr;
    RfcPing* Ping = nullptr;
    RfcCancel* Cancel = nullptr;  // null in older releases
    RfcGetConnectionAttributes* GetConnectionAttributes = nullptr;
    RfcGetFunctionDesc* GetFunctionDesc = nullptr;
    RfcCreateFunction* CreateFunction = nullptr;
    RfcDestroyFunction* DestroyFunction = nullptr;
    RfcInvoke* Invoke = nullptr;
    RfcSetString* SetString = nullptr;
    RfcGetString* GetString = nullptr;
    RfcGetTable* GetTable = nullptr;
    RfcDeleteAllRows* DeleteAllRows = nullptr;
    RfcAppendNewRow* AppendNewRow = nullptr;
    RfcGetRowCount* GetRowCount = nullptr;
    RfcMoveTo* MoveTo = nullptr;
    RfcGetCurrentRow* GetCurrentRow = nullptr;
    RfcDescribeType* DescribeType = nullptr;
    RfcGetFieldDescByIndex* GetFieldDescByIndex = nullptr;
};

}  // namespace qor::nwrfc
