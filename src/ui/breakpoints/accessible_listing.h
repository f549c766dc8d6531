// What assistive technology sees of the program listing: a list whose items can be checked.
#pragma once

namespace corvane::ui {

// To be called before the first listing is shown; further calls do no harm.
void InstallAccessibleListing();

}  // namespace corvane::ui
