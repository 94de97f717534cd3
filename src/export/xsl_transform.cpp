#include "export/xsl_transform.h"

#include <libxml/tree.h>
#include <libxml/xmlerror.h>
#include <libxslt/security.h>
#include <libxslt/transform.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>

#include <cstdarg>
#include <cstdio>
#include <memory>
#include <regex>

#include "config/text_trim.h"

namespace tessarin {
namespace {

xmlDoc* DocumentOf(const XmlDocument& document) {
    const XmlNode root = document.DocumentElement();
    return root ? root.raw()->doc : nullptr;
}

// Gathers what the processor reports while it lives, instead of printing it.
class ErrorCollector {
  public:
    ErrorCollector() {
        xmlSetGenericErrorFunc(this, &Collect);
        xsltSetGenericErrorFunc(this, &Collect);
    }
    ~ErrorCollector() {
        xmlSetGenericErrorFunc(nullptr, nullptr);
        xsltSetGenericErrorFunc(nullptr, nullptr);
    }
    ErrorCollector(const ErrorCollector&) = delete;
    ErrorCollector& operator=(const ErrorCollector&) = delete;

    XslTransformError Error(std::string fallback) const {
        XslTransformError error;
        std::string reason = text_;
        for (char& c : reason) {
            if (c == '\n') c = ' ';
        }
        error.reason =
            TrimWhitespace(reason).empty() ? fallback : std::string(TrimWhitespace(reason));
        std::smatch line;
        if (std::regex_search(text_, line, std::regex("line ([0-9]{1,9})")))
            error.line = std::stoi(line[1]);
        return error;
    }

  private:
    static void Collect(void* self, const char* format, ...) {
        char buffer[2048];
        va_list arguments;
        va_start(arguments, format);
        std::vsnprintf(buffer, sizeof buffer, format, arguments);
        va_end(arguments);
        static_cast<ErrorCollector*>(self)->text_ += buffer;
    }

    std::string text_;
};

struct SheetFree {
    void operator()(xsltStylesheet* sheet) const { xsltFreeStylesheet(sheet); }
};
struct ContextFree {
    void operator()(xsltTransformContext* context) const { xsltFreeTransformContext(context); }
};
struct SecurityFree {
    void operator()(xsltSecurityPrefs* prefs) const { xsltFreeSecurityPrefs(prefs); }
};
struct DocFree {
    void operator()(xmlDoc* doc) const { xmlFreeDoc(doc); }
};

}  // namespace

XslTransformResult TransformStory(const XmlDocument& styleSheet, const XmlDocument& story) {
    XslTransformResult result;
    ErrorCollector errors;
    xmlDoc* sheetDocument = DocumentOf(styleSheet);
    xmlDoc* storyDocument = DocumentOf(story);
    if (sheetDocument == nullptr || storyDocument == nullptr) {
        result.error = errors.Error("nothing to transform");
        return result;
    }
    // The compiled style sheet owns its document: it is given a copy.
    std::unique_ptr<xsltStylesheet, SheetFree> sheet(
        xsltParseStylesheetDoc(xmlCopyDoc(sheetDocument, 1)));
    if (!sheet || sheet->errors > 0) {
        result.error = errors.Error("the style sheet is not a valid XSLT style sheet");
        return result;
    }
    std::unique_ptr<xsltSecurityPrefs, SecurityFree> security(xsltNewSecurityPrefs());
    for (const xsltSecurityOption option :
         {XSLT_SECPREF_WRITE_FILE, XSLT_SECPREF_CREATE_DIRECTORY, XSLT_SECPREF_READ_NETWORK,
          XSLT_SECPREF_WRITE_NETWORK}) {
        xsltSetSecurityPrefs(security.get(), option, xsltSecurityForbid);
    }
    std::unique_ptr<xsltTransformContext, ContextFree> context(
        xsltNewTransformContext(sheet.get(), storyDocument));
    xsltSetCtxtSecurityPrefs(security.get(), context.get());
    std::unique_ptr<xmlDoc, DocFree> output(xsltApplyStylesheetUser(
        sheet.get(), storyDocument, nullptr, nullptr, nullptr, context.get()));
    if (!output || context->state != XSLT_STATE_OK) {
        result.error = errors.Error("the transformation failed");
        return result;
    }
    xmlChar* bytes = nullptr;
    int length = 0;
    if (xsltSaveResultToString(&bytes, &length, output.get(), sheet.get()) != 0) {
        result.error = errors.Error("the result cannot be written");
        return result;
    }
    if (bytes != nullptr) {
        result.output.assign(reinterpret_cast<const char*>(bytes),
                             static_cast<std::size_t>(length));
        xmlFree(bytes);
    }
    result.succeeded = true;
    return result;
}

std::string StyleSheetExtension(const XmlDocument& styleSheet) {
    std::string extension = "htm";
    const xmlDoc* document = DocumentOf(styleSheet);
    if (document == nullptr) return extension;
    constexpr std::string_view kMark = "extension=";
    for (const xmlNode* node = document->children; node != nullptr; node = node->next) {
        if (node->type != XML_COMMENT_NODE || node->content == nullptr) continue;
        const std::string_view text(reinterpret_cast<const char*>(node->content));
        const std::size_t found = text.find(kMark);
        if (found != std::string_view::npos)
            extension = TrimWhitespace(text.substr(found + kMark.size()));
    }
    return extension;
}

}  // namespace tessarin
