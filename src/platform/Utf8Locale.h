#pragma once

namespace netrove {

/// Makes names UTF-8 whatever the caller's locale says. To be called before there is an
/// application, which would complain.
void UseUtf8Locale();

} // namespace netrove
