#pragma once

#include <vellora/project/ProjectCheck.h>

#include "xml/XmlNode.h"

namespace vellora {

/// Collects what a check finds.
class Findings {
public:
    /// @param node  Where it is.
    void add(const XmlNode& node, const QString& message);
    /// Whether there is no point in looking on.
    [[nodiscard]] bool isFull() const;

    /// The findings in the order of the document.
    /// @param document  In UTF-8, as it was parsed.
    [[nodiscard]] std::vector<ProjectFinding> placedIn(const QByteArray& document);

private:
    struct Finding {
        std::ptrdiff_t offset;
        QString message;
    };

    std::vector<Finding> m_found;
};

/// Whether the attribute is there and begins with a number; finds fault otherwise.
bool checkNumber(const XmlNode& node, const char* name, Findings& findings);
bool checkHexNumber(const XmlNode& node, const char* name, Findings& findings);
/// As above for a decimal number, which may begin with its point.
bool checkFraction(const XmlNode& node, const char* name, Findings& findings);

/// Finds fault with children whose names are none of these.
void checkChildNames(const XmlNode& node, std::initializer_list<const char*> names,
                     Findings& findings);

}  // namespace vellora
