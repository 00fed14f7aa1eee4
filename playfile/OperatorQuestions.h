// What the operator is asked about playfiles.
#pragma once

namespace qrtVistrelClasses4 {

/// Whether to go on with a playfile of the older format, which can be saved as a current one only.
bool AskWhetherToOpenLegacyPlayfile();

/// Whether to copy files from drives that may go away; see `SaveCircumstances`.
bool AskWhetherToCopyFiles();

} // namespace qrtVistrelClasses4
