#include <windows.h>

#include <wincodec.h>

#include "base/win32/com.h"
#include "tools/gallery/sheet.h"

namespace gallery {

bool savePng(const std::wstring& path, const tavi::PixelBuffer& picture) {
    const base::ComApartment apartment;
    base::ComPtr<IWICImagingFactory> factory;
    base::ComPtr<IWICStream> stream;
    base::ComPtr<IWICBitmapEncoder> encoder;
    base::ComPtr<IWICBitmapFrameEncode> frame;
    base::ComPtr<IWICBitmap> bitmap;
    const auto stored = [](auto& pointer) { return reinterpret_cast<decltype(pointer.get())*>(pointer.put()); };
    const auto width = static_cast<UINT>(picture.size().width);
    const auto height = static_cast<UINT>(picture.size().height);
    // The encoder only reads the pixels.
    auto* const bytes = reinterpret_cast<BYTE*>(const_cast<tavi::Pixel*>(picture.pixels().data()));
    // Without alpha a PNG has 24 bits a pixel; the source converts.
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    return apartment.usable() && !picture.empty() &&
           SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                      factory.put())) &&
           SUCCEEDED(factory->CreateStream(stored(stream))) &&
           SUCCEEDED(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE)) &&
           SUCCEEDED(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, stored(encoder))) &&
           SUCCEEDED(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache)) &&
           SUCCEEDED(encoder->CreateNewFrame(stored(frame), nullptr)) && SUCCEEDED(frame->Initialize(nullptr)) &&
           SUCCEEDED(frame->SetSize(width, height)) && SUCCEEDED(frame->SetPixelFormat(&format)) &&
           SUCCEEDED(factory->CreateBitmapFromMemory(width, height, GUID_WICPixelFormat32bppBGR, width * 4,
                                                     static_cast<UINT>(picture.bytes()), bytes, stored(bitmap))) &&
           SUCCEEDED(frame->WriteSource(bitmap.get(), nullptr)) && SUCCEEDED(frame->Commit()) &&
           SUCCEEDED(encoder->Commit());
}

}  // namespace gallery
