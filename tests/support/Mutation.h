#pragma once

#include <QByteArray>
#include <random>

namespace vellora::test {

/// All seeds take minutes under sanitizers; "VELLORA_MUTATIONS" asks for as many as wanted.
int mutationCount();

/// A few changes of the kind that break readers.
void mutate(QByteArray& bytes, std::mt19937& random);

}  // namespace vellora::test
