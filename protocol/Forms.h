#pragma once

/// The fields of every form, in the order in which they stand on the wire; used for writing and for reading.
#include "protocol/forms/HistoryForms.h"
#include "protocol/forms/PartDataForms.h"
#include "protocol/forms/RequestForms.h"
#include "protocol/forms/RootForms.h"
#include "protocol/forms/TreeForms.h"
#include "protocol/forms/WarningForms.h"
