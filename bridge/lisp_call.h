// How a call of the host's LISP ends for its caller: the kinds of result that the wrappers read. All are true
// only when the call succeeded and a result of the kind came back; otherwise the output is left alone. An
// output may be the text that the call was made of.
#pragma once

#include "platform/host/result_buffer.h"

namespace ryv {

/// Whatever comes back: the status alone counts.
bool callLisp(const HostResultBuffer& call);

/// A string.
bool callLispForString(const HostResultBuffer& call, CString& result);

/// A 16-bit integer.
bool callLispForInteger(const HostResultBuffer& call, std::int16_t& result);

/// A list of any values, as the chain of its elements. nil, T and an empty chain are none; for a dialog nil
/// means that it was cancelled.
bool callLispForList(const HostResultBuffer& call, HostResultBuffer& result);

/// A list of strings and nothing else. nil is none.
bool callLispForStrings(const HostResultBuffer& call, CStringArray& result);

/// A list of numbers and nothing else, whole ones or reals.
bool callLispForNumbers(const HostResultBuffer& call, std::vector<double>& result);

/// The strings among the values that come back, at any depth of list marks. nil is a result here: no string.
/// False when something else came back that holds no string.
bool callLispForItems(const HostResultBuffer& call, CStringArray& result);

} // namespace ryv
