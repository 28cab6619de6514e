// Image files. Raster formats go through the platform's imaging component
// (BMP, PNG, JPEG, GIF, TIFF and ICO are read by it; all but ICO written by
// it), metafiles through GDI. ICO files are written here, as a directory
// over one BMP or PNG image, since the imaging component has no encoder for
// them. Resolution travels both ways: dots per inch in the files, pixels
// per metre in the DIB.
#include <objbase.h>
#include <wincodec.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "engine_state.h"
#include "portable/file_writers.h"
#include "portable/jpeg_writer.h"
#include "engine_warnings.h"
#include "portable/raster_kernels.h"
#include "portable/source_readers.h"

namespace {

// Releases a COM interface when it leaves scope.
template <class T>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(const ComPtr&) = delete;
    ComPtr& operator=(const ComPtr&) = delete;
    ~ComPtr()
    {
        if (p_) p_->Release();
    }
    T** operator&() { return &p_; }
    T* operator->() const { return p_; }
    T* get() const { return p_; }
    explicit operator bool() const { return p_ != nullptr; }

private:
    T* p_ = nullptr;
};

// COM for the length of one file operation, on whatever apartment the
// caller's thread already has.
class ComScope {
public:
    ComScope()
    {
        HRESULT hr = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        owned_ = SUCCEEDED(hr);
    }
    ~ComScope()
    {
        if (owned_) CoUninitialize();
    }

private:
    bool owned_ = false;
};

enum class FileKind { Unknown, Bmp, Png, Jpeg, Gif, Tiff, Ico, Wmf, Emf, Eps, Dcx, Sci, Cut, Pcx };

FileKind KindOfPath(const char* path)
{
    const char* dot = std::strrchr(path, '.');
    const char* slash = std::strrchr(path, '\\');
    if (!dot || (slash && slash > dot)) return FileKind::Unknown;
    struct Entry {
        const char* ext;
        FileKind kind;
    };
    static const Entry table[] = {
        {"bmp", FileKind::Bmp}, {"dib", FileKind::Bmp},  {"png", FileKind::Png},   {"jpg", FileKind::Jpeg},
        {"jpeg", FileKind::Jpeg}, {"jpe", FileKind::Jpeg}, {"gif", FileKind::Gif},   {"tif", FileKind::Tiff},
        {"tiff", FileKind::Tiff}, {"ico", FileKind::Ico},  {"wmf", FileKind::Wmf},   {"emf", FileKind::Emf},
        {"eps", FileKind::Eps}, {"dcx", FileKind::Dcx},  {"sci", FileKind::Sci},
        {"cut", FileKind::Cut}, {"pcx", FileKind::Pcx},
    };
    for (const Entry& entry : table)
        if (lstrcmpiA(dot + 1, entry.ext) == 0) return entry.kind;
    return FileKind::Unknown;
}

std::wstring Widen(const char* text)
{
    int count = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    std::wstring wide(count > 0 ? count : 1, L'\0');
    if (count > 0) MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), count);
    wide.resize(wcslen(wide.c_str()));
    return wide;
}

bool FileExists(const char* path)
{
    DWORD attributes = GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool ReadWholeFile(const char* path, std::vector<unsigned char>& bytes)
{
    FILE* file = std::fopen(path, "rb");
    if (!file) return false;
    bytes.clear();
    unsigned char chunk[65536];
    std::size_t got;
    while ((got = std::fread(chunk, 1, sizeof chunk, file)) > 0) bytes.insert(bytes.end(), chunk, chunk + got);
    bool ok = !std::ferror(file);
    std::fclose(file);
    return ok;
}

bool WriteWholeFile(const char* path, const void* bytes, std::size_t count)
{
    FILE* file = std::fopen(path, "wb");
    if (!file) return false;
    bool ok = std::fwrite(bytes, 1, count, file) == count;
    ok = (std::fclose(file) == 0) && ok;
    return ok;
}

int32_t PelsPerMeterFromDpi(double dpi)
{
    return dpi > 0 ? int32_t(dpi / 0.0254 + 0.5) : 0;
}

double DpiFromPelsPerMeter(int32_t pelsPerMeter)
{
    return pelsPerMeter > 0 ? pelsPerMeter * 0.0254 : 0.0;
}

// ---------------------------------------------------------------- reading

short ImageFromFrame(IWICImagingFactory* factory, IWICBitmapFrameDecode* frame, ravi::Image& out)
{
    UINT width = 0, height = 0;
    if (FAILED(frame->GetSize(&width, &height)) || width == 0 || height == 0) return ravi::kEngineBadSize;
    if (width > UINT(ravi::kMaxSide) || height > UINT(ravi::kMaxSide)) return ravi::kEngineBadSize;
    WICPixelFormatGUID format = {};
    frame->GetPixelFormat(&format);

    // Depths a DIB holds as they are stay; everything else is converted to
    // 32 bits when it may carry transparency and to 24 bits otherwise.
    // Black and white and 8-bit greys need no table of their own: the
    // default tables of MakeImage are just these.
    int bits = 0;
    bool indexed = false;
    WICPixelFormatGUID wanted = format;
    if (IsEqualGUID(format, GUID_WICPixelFormatBlackWhite) || IsEqualGUID(format, GUID_WICPixelFormat1bppIndexed)) {
        bits = 1;
        indexed = IsEqualGUID(format, GUID_WICPixelFormat1bppIndexed);
    } else if (IsEqualGUID(format, GUID_WICPixelFormat4bppIndexed)) {
        bits = 4;
        indexed = true;
    } else if (IsEqualGUID(format, GUID_WICPixelFormat8bppIndexed)) {
        bits = 8;
        indexed = true;
    } else if (IsEqualGUID(format, GUID_WICPixelFormat8bppGray)) {
        bits = 8;
    } else if (IsEqualGUID(format, GUID_WICPixelFormat24bppBGR)) {
        bits = 24;
    } else if (IsEqualGUID(format, GUID_WICPixelFormat32bppBGR) || IsEqualGUID(format, GUID_WICPixelFormat32bppBGRA)) {
        bits = 32;
    } else if (IsEqualGUID(format, GUID_WICPixelFormat32bppPBGRA) || IsEqualGUID(format, GUID_WICPixelFormat32bppRGBA) ||
               IsEqualGUID(format, GUID_WICPixelFormat64bppRGBA) || IsEqualGUID(format, GUID_WICPixelFormat2bppIndexed)) {
        bits = 32;
        wanted = GUID_WICPixelFormat32bppBGRA;
    } else {
        bits = 24;
        wanted = GUID_WICPixelFormat24bppBGR;
    }

    ComPtr<IWICFormatConverter> converter;
    IWICBitmapSource* source = frame;
    if (!IsEqualGUID(wanted, format)) {
        if (FAILED(factory->CreateFormatConverter(&converter))) return ravi::kEngineNoMemory;
        if (FAILED(converter->Initialize(frame, wanted, WICBitmapDitherTypeNone, nullptr, 0.0,
                                         WICBitmapPaletteTypeCustom)))
            return ravi::kEngineFileFormat;
        source = converter.get();
    }

    ravi::Image image;
    short code = ravi::MakeImage(int32_t(width), int32_t(height), bits, &image);
    if (code != 0) return code;

    if (indexed) {
        ComPtr<IWICPalette> palette;
        UINT count = 0;
        if (SUCCEEDED(factory->CreatePalette(&palette)) && SUCCEEDED(frame->CopyPalette(palette.get())) &&
            SUCCEEDED(palette->GetColorCount(&count)) && count > 0) {
            std::vector<WICColor> colours(count);
            palette->GetColors(count, colours.data(), &count);
            ravi::RgbQuad* table = image.Table();
            for (UINT i = 0; i < count && i < image.Colors(); ++i) {
                table[i].blue = BYTE(colours[i]);
                table[i].green = BYTE(colours[i] >> 8);
                table[i].red = BYTE(colours[i] >> 16);
                table[i].reserved = 0;
            }
        }
    }

    // The imaging component gives rows from the top, the DIB keeps them
    // from the bottom: one row at a time.
    UINT stride = UINT(image.Stride());
    std::vector<unsigned char> row(stride);
    for (UINT y = 0; y < height; ++y) {
        WICRect rect = {0, INT(y), INT(width), 1};
        if (FAILED(source->CopyPixels(&rect, stride, stride, row.data()))) return ravi::kEngineFileFormat;
        std::memcpy(image.Row(int32_t(y)), row.data(), stride);
    }

    double dpiX = 0, dpiY = 0;
    if (SUCCEEDED(frame->GetResolution(&dpiX, &dpiY))) {
        image.Header()->xPelsPerMeter = PelsPerMeterFromDpi(dpiX);
        image.Header()->yPelsPerMeter = PelsPerMeterFromDpi(dpiY);
    }
    out = std::move(image);
    return 0;
}

short ReadThroughWic(const char* path, ravi::Image& image)
{
    ComScope com;
    ComPtr<IWICImagingFactory> factory;
    if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                reinterpret_cast<void**>(&factory))))
        return ravi::kEngineFileOpen;
    std::wstring wide = Widen(path);
    ComPtr<IWICBitmapDecoder> decoder;
    if (FAILED(factory->CreateDecoderFromFilename(wide.c_str(), nullptr, GENERIC_READ,
                                                  WICDecodeMetadataCacheOnDemand, &decoder)))
        return ravi::kEngineFileFormat;
    ComPtr<IWICBitmapFrameDecode> frame;
    if (FAILED(decoder->GetFrame(0, &frame))) return ravi::kEngineFileFormat;
    short code = ImageFromFrame(factory.get(), frame.get(), image);
    UINT frames = 0;
    if (code == 0 && SUCCEEDED(decoder->GetFrameCount(&frames)) && frames > 1)
        ravi::ReportWarning(kRavicliWarnFirstPageOnly);
    return code;
}

// A Windows metafile, with or without the placeable header in front that
// gives its size on paper.
short ReadWindowsMetafile(const char* path, HENHMETAFILE& emf)
{
    std::vector<unsigned char> bytes;
    if (!ReadWholeFile(path, bytes)) return ravi::kEngineFileOpen;
    const unsigned char* bits = bytes.data();
    std::size_t count = bytes.size();
    METAFILEPICT picture = {};
    const METAFILEPICT* pictureInfo = nullptr;
    uint32_t key = 0;
    if (count >= 4) std::memcpy(&key, bits, 4);
    if (key == 0x9AC6CDD7u && count > 22) {
        int16_t box[4];
        uint16_t inch;
        std::memcpy(box, bits + 6, sizeof box);
        std::memcpy(&inch, bits + 14, sizeof inch);
        if (inch > 0) {
            picture.mm = MM_ANISOTROPIC;
            picture.xExt = MulDiv(box[2] - box[0], 2540, inch);
            picture.yExt = MulDiv(box[3] - box[1], 2540, inch);
            pictureInfo = &picture;
        }
        bits += 22;
        count -= 22;
    }
    if (count < 18) return ravi::kEngineFileFormat;
    HENHMETAFILE result = SetWinMetaFileBits(UINT(count), bits, nullptr, pictureInfo);
    if (!result) return ravi::kEngineFileFormat;
    emf = result;
    return 0;
}

short ReadEnhancedMetafile(const char* path, HENHMETAFILE& emf)
{
    std::vector<unsigned char> bytes;
    if (!ReadWholeFile(path, bytes)) return ravi::kEngineFileOpen;
    ENHMETAHEADER header = {};
    if (bytes.size() < sizeof header) return ravi::kEngineFileFormat;
    std::memcpy(&header, bytes.data(), sizeof header);
    if (header.iType != EMR_HEADER || header.dSignature != ENHMETA_SIGNATURE || header.nBytes > bytes.size())
        return ravi::kEngineFileFormat;
    HENHMETAFILE result = SetEnhMetaFileBits(header.nBytes, bytes.data());
    if (!result) return ravi::kEngineFileFormat;
    emf = result;
    return 0;
}

// The formats the engine decodes itself (portable/source_readers.h). A
// file larger than any image the engine holds is refused before it is read.
bool ReadSourceFile(const char* path, std::vector<unsigned char>& bytes, short* code)
{
    WIN32_FILE_ATTRIBUTE_DATA facts = {};
    if (!GetFileAttributesExA(path, GetFileExInfoStandard, &facts)) {
        *code = ravi::kEngineFileOpen;
        return false;
    }
    if (facts.nFileSizeHigh != 0 || facts.nFileSizeLow > ravi::kMaxImageBytes) {
        *code = ravi::kEngineNoMemory;
        return false;
    }
    if (!ReadWholeFile(path, bytes)) {
        *code = ravi::kEngineFileOpen;
        return false;
    }
    return true;
}

// A CUT picture, coloured by the palette file that the CUT source dialog
// chose, else by the one of the picture's name beside it; with neither the
// indices are read as greys. A palette file that is there but damaged
// fails the open: the colours would be wrong without a word.
short ReadCutFile(const char* path, const std::string& chosenPalette, ravi::Image& image)
{
    std::vector<unsigned char> bytes;
    short code = 0;
    if (!ReadSourceFile(path, bytes, &code)) return code;
    std::string palettePath = chosenPalette;
    if (palettePath.empty() || !FileExists(palettePath.c_str())) {
        palettePath = path;
        const size_t dot = palettePath.find_last_of('.');
        const size_t slash = palettePath.find_last_of("\\/");
        if (dot != std::string::npos && (slash == std::string::npos || dot > slash)) palettePath.erase(dot);
        palettePath += ".pal";
    }
    ravi::CutPalette palette;
    const bool coloured = FileExists(palettePath.c_str());
    if (coloured) {
        std::vector<unsigned char> paletteBytes;
        if (!ReadSourceFile(palettePath.c_str(), paletteBytes, &code)) return code;
        if ((code = ravi::ReadCutPalette(paletteBytes.data(), paletteBytes.size(), &palette)) != 0) return code;
    }
    return ravi::ReadCutPicture(bytes.data(), bytes.size(), coloured ? &palette : nullptr, &image);
}

short ReadPcxFile(const char* path, ravi::Image& image)
{
    std::vector<unsigned char> bytes;
    short code = 0;
    if (!ReadSourceFile(path, bytes, &code)) return code;
    return ravi::ReadPcxPicture(bytes.data(), bytes.size(), &image);
}

// ---------------------------------------------------------------- writing

bool HasAlpha(const ravi::Image& image)
{
    if (image.Bits() != 32) return false;
    for (int32_t y = 0; y < image.Height(); ++y) {
        const uint8_t* row = image.Row(y);
        for (int32_t x = 0; x < image.Width(); ++x)
            if (row[x * 4 + 3] != 0) return true;
    }
    return false;
}

WICPixelFormatGUID WicFormatOf(const ravi::Image& image)
{
    switch (image.Bits()) {
    case 1: return GUID_WICPixelFormat1bppIndexed;
    case 4: return GUID_WICPixelFormat4bppIndexed;
    case 8: return GUID_WICPixelFormat8bppIndexed;
    case 24: return GUID_WICPixelFormat24bppBGR;
    default: return HasAlpha(image) ? GUID_WICPixelFormat32bppBGRA : GUID_WICPixelFormat32bppBGR;
    }
}

// Tries to write one frame of the image as it is. S_FALSE when the encoder
// wants another pixel format; the caller then converts and tries again.
HRESULT EncodeFrame(IWICImagingFactory* factory, IWICBitmapEncoder* encoder, const ravi::Image& image)
{
    ComPtr<IWICBitmapFrameEncode> frame;
    ComPtr<IPropertyBag2> options;
    HRESULT hr = encoder->CreateNewFrame(&frame, &options);
    if (FAILED(hr)) return hr;
    if (FAILED(hr = frame->Initialize(options.get()))) return hr;
    if (FAILED(hr = frame->SetSize(UINT(image.Width()), UINT(image.Height())))) return hr;
    double dpiX = DpiFromPelsPerMeter(image.Header()->xPelsPerMeter);
    double dpiY = DpiFromPelsPerMeter(image.Header()->yPelsPerMeter);
    if (dpiX > 0 && dpiY > 0) frame->SetResolution(dpiX, dpiY);

    WICPixelFormatGUID wanted = WicFormatOf(image);
    WICPixelFormatGUID format = wanted;
    if (FAILED(hr = frame->SetPixelFormat(&format))) return hr;
    if (!IsEqualGUID(format, wanted)) return S_FALSE;

    if (image.Bits() <= 8) {
        std::vector<WICColor> colours(image.Colors());
        const ravi::RgbQuad* table = image.Table();
        for (std::size_t i = 0; i < colours.size(); ++i)
            colours[i] = 0xFF000000u | (WICColor(table[i].red) << 16) | (WICColor(table[i].green) << 8) | table[i].blue;
        ComPtr<IWICPalette> palette;
        if (FAILED(hr = factory->CreatePalette(&palette))) return hr;
        if (FAILED(hr = palette->InitializeCustom(colours.data(), UINT(colours.size())))) return hr;
        if (FAILED(hr = frame->SetPalette(palette.get()))) return hr;
    }

    UINT stride = UINT(image.Stride());
    std::vector<unsigned char> rows(std::size_t(stride) * image.Height());
    for (int32_t y = 0; y < image.Height(); ++y) std::memcpy(&rows[std::size_t(y) * stride], image.Row(y), stride);
    if (FAILED(hr = frame->WritePixels(UINT(image.Height()), stride, UINT(rows.size()), rows.data()))) return hr;
    if (FAILED(hr = frame->Commit())) return hr;
    return encoder->Commit();
}

// Writes the image into a stream in a container format, converting its
// depth where the encoder asks for another.
// GIF takes only palettes of 8 bits.
short ToGifDepth(ravi::Image& image)
{
    short code = 0;
    if (image.Bits() > 8) {
        ravi::ReduceParams params;
        params.depth = 8;
        params.method = ravi::kReduceDiffuse;
        params.paletteColors = 1;
        code = ravi::Reduce(image, params);
    }
    if (code == 0 && image.Bits() < 8) code = ravi::ConvertDepth(image, 8);
    return code;
}

short EncodeToStream(IWICImagingFactory* factory, IStream* stream, const GUID& container, const ravi::Image& source)
{
    ravi::Image image = source;
    short code = 0;
    // What the format lost is told once the file is written.
    short lost = 0;
    // What each encoder takes: GIF only palettes of 8 bits, JPEG no palette,
    // the fax compressions of TIFF only two colours.
    if (IsEqualGUID(container, GUID_ContainerFormatGif)) {
        if (image.Bits() > 8) lost = kRavicliWarnColorsReduced;
        code = ToGifDepth(image);
    } else if (IsEqualGUID(container, GUID_ContainerFormatJpeg) && image.Bits() != 24) {
        if (HasAlpha(image)) lost = kRavicliWarnAlphaDropped;
        code = ravi::ConvertDepth(image, 24);
    }
    if (code != 0) return code;

    for (int attempt = 0; attempt < 2; ++attempt) {
        ComPtr<IWICBitmapEncoder> encoder;
        if (FAILED(factory->CreateEncoder(container, nullptr, &encoder))) return ravi::kEngineFileFormat;
        LARGE_INTEGER zero = {};
        stream->Seek(zero, STREAM_SEEK_SET, nullptr);
        if (FAILED(encoder->Initialize(stream, WICBitmapEncoderNoCache))) return ravi::kEngineFileWrite;
        HRESULT hr = EncodeFrame(factory, encoder.get(), image);
        if (hr == S_OK) {
            if (lost != 0) ravi::ReportWarning(lost);
            return 0;
        }
        if (FAILED(hr)) return ravi::kEngineFileWrite;
        // The encoder wants another depth: 24 bits is what they all take.
        if (attempt == 0 && (code = ravi::ConvertDepth(image, 24)) != 0) return code;
    }
    return ravi::kEngineFileFormat;
}

GUID ContainerOf(FileKind kind)
{
    switch (kind) {
    case FileKind::Bmp: return GUID_ContainerFormatBmp;
    case FileKind::Png: return GUID_ContainerFormatPng;
    case FileKind::Jpeg: return GUID_ContainerFormatJpeg;
    case FileKind::Gif: return GUID_ContainerFormatGif;
    default: return GUID_ContainerFormatTiff;
    }
}

short WriteThroughWic(const char* path, FileKind kind, const ravi::Image& image)
{
    ComScope com;
    ComPtr<IWICImagingFactory> factory;
    if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                reinterpret_cast<void**>(&factory))))
        return ravi::kEngineFileWrite;
    ComPtr<IWICStream> stream;
    if (FAILED(factory->CreateStream(&stream))) return ravi::kEngineNoMemory;
    std::wstring wide = Widen(path);
    if (FAILED(stream->InitializeFromFilename(wide.c_str(), GENERIC_WRITE))) return ravi::kEngineFileWrite;
    return EncodeToStream(factory.get(), stream.get(), ContainerOf(kind), image);
}

// The image in a container format in memory.
short EncodeInMemory(const ravi::Image& image, const GUID& container, std::vector<unsigned char>& bytes);

// The image as a PNG in memory, for icons larger than a BMP entry may be.
short EncodePngInMemory(const ravi::Image& image, std::vector<unsigned char>& png)
{
    return EncodeInMemory(image, GUID_ContainerFormatPng, png);
}

short EncodeInMemory(const ravi::Image& image, const GUID& container, std::vector<unsigned char>& png)
{
    ComScope com;
    ComPtr<IWICImagingFactory> factory;
    if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                reinterpret_cast<void**>(&factory))))
        return ravi::kEngineFileWrite;
    ComPtr<IStream> stream;
    if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, &stream))) return ravi::kEngineNoMemory;
    short code = EncodeToStream(factory.get(), stream.get(), container, image);
    if (code != 0) return code;
    STATSTG stat = {};
    stream->Stat(&stat, STATFLAG_NONAME);
    png.resize(std::size_t(stat.cbSize.QuadPart));
    LARGE_INTEGER zero = {};
    stream->Seek(zero, STREAM_SEEK_SET, nullptr);
    ULONG got = 0;
    stream->Read(png.data(), ULONG(png.size()), &got);
    png.resize(got);
    return 0;
}

void PutLe16(std::vector<unsigned char>& out, uint16_t value)
{
    out.push_back(uint8_t(value));
    out.push_back(uint8_t(value >> 8));
}

void PutLe32(std::vector<unsigned char>& out, uint32_t value)
{
    PutLe16(out, uint16_t(value));
    PutLe16(out, uint16_t(value >> 16));
}

// An icon file of one image: up to 256 pixels a side as a 32-bit BMP entry
// (colours with alpha, then an AND mask that lets the alpha decide), larger
// as a PNG entry.
short WriteIcon(const char* path, const ravi::Image& source)
{
    ravi::Image image = source;
    short code = image.Bits() == 32 ? 0 : ravi::ConvertDepth(image, 32);
    if (code != 0) return code;
    // A DIB of 32 bits with no alpha anywhere means an opaque picture.
    if (!HasAlpha(image))
        for (int32_t y = 0; y < image.Height(); ++y)
            for (int32_t x = 0; x < image.Width(); ++x) image.Row(y)[x * 4 + 3] = 0xFF;

    std::vector<unsigned char> entry;
    bool small = image.Width() <= 256 && image.Height() <= 256;
    if (small) {
        PutLe32(entry, 40);
        PutLe32(entry, uint32_t(image.Width()));
        PutLe32(entry, uint32_t(image.Height() * 2));  // colours and mask
        PutLe16(entry, 1);
        PutLe16(entry, 32);
        PutLe32(entry, 0);
        PutLe32(entry, 0);
        PutLe32(entry, 0);
        PutLe32(entry, 0);
        PutLe32(entry, 0);
        PutLe32(entry, 0);
        const uint8_t* rows = image.Data() + image.Layout().pixelOffset;
        entry.insert(entry.end(), rows, rows + image.Stride() * std::size_t(image.Height()));
        std::size_t maskStride = ((std::size_t(image.Width()) + 31) / 32) * 4;
        entry.insert(entry.end(), maskStride * std::size_t(image.Height()), 0);
    } else {
        code = EncodePngInMemory(image, entry);
        if (code != 0) return code;
    }

    std::vector<unsigned char> file;
    PutLe16(file, 0);  // reserved
    PutLe16(file, 1);  // an icon, not a cursor
    PutLe16(file, 1);  // one image
    file.push_back(uint8_t(image.Width() >= 256 ? 0 : image.Width()));
    file.push_back(uint8_t(image.Height() >= 256 ? 0 : image.Height()));
    file.push_back(0);  // no palette
    file.push_back(0);
    PutLe16(file, 1);   // planes
    PutLe16(file, 32);  // bits per pixel
    PutLe32(file, uint32_t(entry.size()));
    PutLe32(file, uint32_t(file.size() + 4));
    file.insert(file.end(), entry.begin(), entry.end());
    return WriteWholeFile(path, file.data(), file.size()) ? short(0) : short(ravi::kEngineFileWrite);
}

short WriteEnhancedMetafile(const char* path, HENHMETAFILE emf)
{
    HENHMETAFILE copy = CopyEnhMetaFileA(emf, path);
    if (!copy) return ravi::kEngineFileWrite;
    DeleteEnhMetaFile(copy);
    return 0;
}

// A Windows metafile with the placeable header, whose box is in
// hundredths of a millimetre's nearest unit: 1440 to the inch.
short WriteWindowsMetafile(const char* path, HENHMETAFILE emf)
{
    HDC screen = GetDC(nullptr);
    UINT count = GetWinMetaFileBits(emf, 0, nullptr, MM_ANISOTROPIC, screen);
    std::vector<unsigned char> bits(count);
    if (count) count = GetWinMetaFileBits(emf, count, bits.data(), MM_ANISOTROPIC, screen);
    ReleaseDC(nullptr, screen);
    if (count == 0) return ravi::kEngineFileWrite;

    ENHMETAHEADER header = {};
    GetEnhMetaFileHeader(emf, sizeof header, &header);
    const uint16_t inch = 1440;
    int16_t right = int16_t(MulDiv(header.rclFrame.right - header.rclFrame.left, inch, 2540));
    int16_t bottom = int16_t(MulDiv(header.rclFrame.bottom - header.rclFrame.top, inch, 2540));
    uint16_t words[10] = {0xCDD7, 0x9AC6, 0, 0, 0, uint16_t(right), uint16_t(bottom), inch, 0, 0};
    uint16_t checksum = 0;
    for (uint16_t word : words) checksum ^= word;
    std::vector<unsigned char> file;
    for (uint16_t word : words) PutLe16(file, word);
    PutLe16(file, checksum);
    file.insert(file.end(), bits.begin(), bits.begin() + count);
    return WriteWholeFile(path, file.data(), file.size()) ? short(0) : short(ravi::kEngineFileWrite);
}

// A GIF with the choices its encoder cannot be asked for: the rows go in
// interlaced order before encoding, the flag and the transparent entry
// are set in the file after it.
short WriteGif(const char* path, const ravi::Image& source, const ravi::FileOptions& options)
{
    ravi::Image image = source;
    short code = ToGifDepth(image);
    if (code != 0) return code;
    if (options.gifInterlace) image = ravi::InterlacedRows(image);
    std::vector<unsigned char> gif;
    if ((code = EncodeInMemory(image, GUID_ContainerFormatGif, gif)) != 0) return code;
    if ((code = ravi::FinishGif(gif, options.gifInterlace, options.gifTransparent)) != 0) return code;
    return WriteWholeFile(path, gif.data(), gif.size()) ? short(0) : short(ravi::kEngineFileWrite);
}

// A TIFF in the layout and compression of a flavour's type text, by the
// engine's own writer: the platform's encoder may ignore the compression
// it is asked for.
short WriteTiff(const char* path, const ravi::Image& image, const std::string& typeText)
{
    zvtiff::TiffTypeFields spec;
    if (!zvtiff::ParseTiffTypeText(typeText.c_str(), &spec)) return ravi::kEngineBadArgument;
    if (!ravi::EngineWritesTiffCompression(spec.compression)) return ravi::kEngineNotSupported;
    std::vector<unsigned char> tiff;
    short code = ravi::WriteTiffBytes(image, spec, &tiff);
    if (code != 0) return code;
    return WriteWholeFile(path, tiff.data(), tiff.size()) ? short(0) : short(ravi::kEngineFileWrite);
}

// JPEG by the engine's own writer, at the quality asked (the platform
// encoder's usual 0.9 when none was), so that the page's quality is in
// the file on every platform.
short WriteJpeg(const char* path, const ravi::Image& image, float imageQuality)
{
    std::vector<unsigned char> jpeg;
    const int percent = ravi::JpegQualityPercent(imageQuality >= 0.0f ? imageQuality : ravi::kDefaultJpegImageQuality);
    short code = ravi::WriteJpegBytes(image, percent, &jpeg);
    if (code != 0) return code;
    if (!WriteWholeFile(path, jpeg.data(), jpeg.size())) return ravi::kEngineFileWrite;
    if (HasAlpha(image)) ravi::ReportWarning(kRavicliWarnAlphaDropped);
    return 0;
}

short WritePcx(const char* path, const ravi::Image& image)
{
    std::vector<unsigned char> pcx;
    short code = ravi::WritePcxBytes(image, &pcx);
    if (code != 0) return code;
    if (!WriteWholeFile(path, pcx.data(), pcx.size())) return ravi::kEngineFileWrite;
    if (HasAlpha(image)) ravi::ReportWarning(kRavicliWarnAlphaDropped);
    return 0;
}

short WriteEps(const char* path, const ravi::Image& image, const ravi::EpsOptions& options)
{
    std::vector<unsigned char> eps;
    short code = ravi::WriteEpsBytes(image, options, &eps);
    if (code != 0) return code;
    return WriteWholeFile(path, eps.data(), eps.size()) ? short(0) : short(ravi::kEngineFileWrite);
}

}  // namespace

namespace ravi {

short ReadImageFile(const char* path, Image& image, HENHMETAFILE& emf, const FileOptions& options)
{
    if (!FileExists(path)) return kEngineFileOpen;
    switch (KindOfPath(path)) {
    case FileKind::Emf: return ReadEnhancedMetafile(path, emf);
    case FileKind::Wmf: return ReadWindowsMetafile(path, emf);
    case FileKind::Cut: return ReadCutFile(path, options.cutPalette, image);
    case FileKind::Pcx: return ReadPcxFile(path, image);
    default: return ReadThroughWic(path, image);  // the decoder knows the format by its content
    }
}

// A raster picture into a file of its kind, with the options of that kind.
static short WriteRasterFile(const char* path, FileKind kind, const Image& image, float jpegQuality,
                             const FileOptions& options)
{
    if (kind == FileKind::Ico) {
        if (options.iconSide == 0 || (image.Width() == options.iconSide && image.Height() == options.iconSide))
            return WriteIcon(path, image);
        Image icon = image;
        short code = Resize(icon, options.iconSide, options.iconSide, 1);
        return code != 0 ? code : WriteIcon(path, icon);
    }
    if (kind == FileKind::Eps) return WriteEps(path, image, options.eps);
    if (kind == FileKind::Pcx) return WritePcx(path, image);
    if (kind == FileKind::Dcx || kind == FileKind::Sci) {
        // The fax kinds are written as TIFF class F.
        const FaxOptions& fax = kind == FileKind::Dcx ? options.dcx : options.sci;
        std::vector<unsigned char> tiff;
        short code = WriteFaxTiffBytes(image, fax, &tiff);
        if (code != 0) return code;
        return WriteWholeFile(path, tiff.data(), tiff.size()) ? short(0) : short(kEngineFileWrite);
    }
    if (kind == FileKind::Tiff && !options.tiffType.empty()) return WriteTiff(path, image, options.tiffType);
    if (kind == FileKind::Gif && (options.gifInterlace || options.gifTransparent >= 0))
        return WriteGif(path, image, options);
    if (kind == FileKind::Jpeg) return WriteJpeg(path, image, jpegQuality);
    return WriteThroughWic(path, kind, image);
}

short WriteImageFile(const char* path, const Image& raster, HENHMETAFILE emf, float jpegQuality)
{
    return WriteImageFile(path, raster, emf, jpegQuality, FileOptions{});
}

short WriteImageFile(const char* path, const Image& raster, HENHMETAFILE emf, float jpegQuality,
                     const FileOptions& options)
{
    FileKind kind = KindOfPath(path);
    // The engine reads CUT but does not write it.
    if (kind == FileKind::Unknown || kind == FileKind::Cut) return kEngineCannotWrite;

    if (kind == FileKind::Emf || kind == FileKind::Wmf) {
        HENHMETAFILE picture = emf;
        if (!picture) picture = MetafileFromRaster(raster);
        if (!picture) return kEngineNoMemory;
        short code = kind == FileKind::Emf ? WriteEnhancedMetafile(path, picture) : WriteWindowsMetafile(path, picture);
        if (picture != emf) DeleteEnhMetaFile(picture);
        return code;
    }

    // A vector going to a raster file is drawn at its own size first.
    Image drawn;
    const Image* image = &raster;
    if (raster.Empty()) {
        long w = 0, h = 0;
        MetafileInfo(emf, &w, &h, nullptr, nullptr);
        short code = RenderMetafile(emf, w, h, 24, drawn);
        if (code != 0) return code;
        image = &drawn;
    }
    const short code = WriteRasterFile(path, kind, *image, jpegQuality, options);
    if (code == 0 && image == &drawn) ReportWarning(kRavicliWarnDrawingRasterized);
    return code;
}

}  // namespace ravi
