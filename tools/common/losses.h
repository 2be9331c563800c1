// What a program would lose of a file by writing it anew.
#pragma once

#include <string>

/// What the last load passed over, as in "3 comments and 1 processing instruction are not kept"; "" if
/// nothing.
std::string not_kept();

/// Throws a Failure if the file `target` is `read`, of which something is not kept, unless that is allowed.
void refuse_loss(const std::string& read, const std::string& lost, const std::string& target, bool allowed);
