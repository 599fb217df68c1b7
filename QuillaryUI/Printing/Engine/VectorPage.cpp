#include "QuillaryUI/Printing/Engine/VectorPage.h"

namespace Quillary::VectorPage {

QByteArray html(const Bytes& svg)
{
    QByteArray page = QByteArrayLiteral("<!DOCTYPE html><html><head><meta charset=\"utf-8\"><style>"
                                        "html, body { margin: 0; overflow: hidden; }"
                                        "img { display: block; width: 100vw; height: 100vh; object-fit: contain; }"
                                        "</style></head><body><img alt=\"\" src=\"data:image/svg+xml;base64,");
    page += QByteArray(reinterpret_cast<const char*>(svg.data()), qsizetype(svg.size())).toBase64();
    page += "\"></body></html>";
    return page;
}

PageGeometry geometry(int pixelWidth, int pixelHeight)
{
    return {.width = pixelWidth * 0.75,
            .height = pixelHeight * 0.75,
            .marginTop = 0,
            .marginRight = 0,
            .marginBottom = 0,
            .marginLeft = 0};
}

} // namespace Quillary::VectorPage
