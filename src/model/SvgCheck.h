#pragma once

#include <QHash>
#include <QString>
#include <QXmlStreamReader>
#include <cstdint>
#include <vector>

namespace vellora {

/// Walks once through an SVG text and looks for what the renderer must not be given: references to
/// files, and texts whose reading alone takes more time, memory or stack than their length tells.
class SvgCheck {
public:
    explicit SvgCheck(const QByteArray& text);

    /// Null when nothing speaks against the text, else what does.
    const char* run();

    [[nodiscard]] std::size_t elements() const { return m_nodes.size(); }
    [[nodiscard]] std::int64_t imagePixels() const { return m_imagePixels; }

private:
    struct Node {
        std::vector<std::size_t> children;
        QString reference;   ///< The id of what is drawn or taken over in this place.
        double size = 1;     ///< Its own work of being read, 1 for a small element.
        double styling = 1;  ///< Work of a comparison with it and all elements around it.
        bool styles = false;
        double expansion = -1;  ///< Its size with all that is in it; -1 while it is not known.
        int height = 0;
        bool open = false;
    };
    /// Elements of one id.
    struct Target {
        std::vector<std::size_t> nodes;
        double expansion = -1;
        int height = 0;
    };

    void enter();
    void readText();
    const char* checkImage();
    const char* checkData(QStringView data);
    const char* expand(std::size_t node, int level);
    const char* expandTarget(Target& target, int level);

    QXmlStreamReader m_xml;
    std::vector<Node> m_nodes;
    std::vector<std::size_t> m_open;
    QHash<QString, Target> m_targets;
    std::int64_t m_imagePixels = 0;
    double m_styleParts = 0;
    double m_styled = 0;
    const char* m_fault = nullptr;
};

}  // namespace vellora
