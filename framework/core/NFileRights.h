#pragma once

#include <sys/types.h>

#include <optional>

/// Who may do what with a file, and what users have attached to it. The operations return 0 or the
/// system's error.
namespace NFileRights {

/// What the system refused to keep.
enum ELost { Owner = 1, Group = 2, AccessList = 4, Attributes = 8 };

/// Gives a new file, which only its owner can read or write so far, what the old one has: owner,
/// group, mode (or the one that is told), access control list and "user" attributes. What is lost
/// is added up in lost; nobody but the new owner can then do more with the file than before.
int copy(int from, int to, std::optional<mode_t> told, int& lost);

/// Where a mount refuses any change, the mode that is already right will do.
int setMode(int file, mode_t mode);

}  // namespace NFileRights
