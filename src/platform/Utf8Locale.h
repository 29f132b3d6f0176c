#pragma once

namespace netrove {

/// Makes file names UTF-8 whatever the caller's locale says. To be called before the application
/// object is made, which would print a warning.
void UseUtf8Locale();

} // namespace netrove
