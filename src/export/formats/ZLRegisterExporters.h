#pragma once

/// Fills the process-wide list of ZLExporter with every format of the program. To be called from main before launching;
/// further calls change nothing.
void ZLRegisterExporters();
