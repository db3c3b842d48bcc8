"""What each language is written with. Letters are those of its orthography, in lower case; sources are the exemplar
characters that Unicode's locale data (CLDR) lists and the orthographies themselves."""
from dataclasses import dataclass

BASIC = "abcdefghijklmnopqrstuvwxyz"
RUSSIAN = "абвгдеёжзийклмнопрстуфхцчшщъыьэюя"
ARABIC = "ءآأؤإئابةتثجحخدذرزسشصضطظعغفقكلمنهوىي" + "".join(map(chr, range(0x64B, 0x653)))  # and the marks of vowels


@dataclass(frozen=True)
class Writing:
    scripts: tuple = ()  # names of its characters begin with one of these
    letters: str = ""  # all of them, where the language has an alphabet of its own that is worth holding cells to
    absent: str = ""  # characters of the script that the language lacks
    marks: str = ""  # punctuation of its own, beside what ends a sentence, and invisible characters
    stop: str = "."  # what ends a sentence
    encoding: str = ""  # an encoding that has the characters of this written form and not those of the other


def latin(more="", without="", **others):
    return Writing(("LATIN", "MODIFIER LETTER"), "".join(sorted(set(BASIC) - set(without))) + more, **others)


def cyrillic(letters, **others):
    return Writing(("CYRILLIC",), letters, **others)


SERBIAN = "абвгдђежзијклљмнњопрстћуфхцчџш"
WRITINGS = {
    "ar": Writing(("ARABIC",), ARABIC, marks="،؛؟"),
    "eu": latin("ñ", without="cqvwy"),
    "bg": cyrillic(RUSSIAN.translate({ord(c): None for c in "ёыэ"})),
    "ca": latin("àçèéíïòóúü", without="kw", marks="·"),
    "zh-CN": Writing(("CJK",), stop="。", encoding="gb2312", marks="，、"),
    "zh-TW": Writing(("CJK",), stop="。", encoding="big5", marks="，、「」"),
    "hr": latin("čćđšž", without="qwxy"),
    "cs": latin("áčďéěíňóřšťúůýž", without="qw"),
    "da": latin("æøåé", without="qwx"),
    "nl": latin("éèëïóö"),
    "en": latin(),
    "et": latin("äõöüšž", without="cqwxy"),
    "fi": latin("äöå", without="qwxz"),
    "fr": latin("àâæçéèêëîïôœùûüÿ"),
    "gl": latin("áéíñóúü", without="jkwy"),
    "de": latin("äöüß"),
    "el": Writing(("GREEK",), "αβγδεζηθικλμνξοπρσςτυφχψωάέήίόύώϊϋΐΰ"),
    "he": Writing(("HEBREW",), "אבגדהוזחטיכךלמםנןסעפףצץקרשת"),
    "hu": latin("áéíóöőúüű", without="qwx"),
    "id": latin(without="x"),
    "it": latin("àèéìòóù", without="jxy"),
    "ja": Writing(("CJK", "HIRAGANA", "KATAKANA", "KATAKANA-HIRAGANA"), stop="。", encoding="shift_jis", marks="、「」"),
    "ko": Writing(("HANGUL",)),
    "lv": latin("āčēģīķļņšūž", without="qwxy"),
    "lt": latin("ąčęėįšųūž", without="qwx"),
    "no": latin("æøåéòóô", without="qwxz"),
    "pl": latin("ąćęłńóśźż", without="qvx"),
    "pt": latin("áàâãçéêíóôõú", without="kwy"),
    "ro": latin("ăâîșț", without="qwy"),
    "ru": cyrillic(RUSSIAN),
    "sr-Latn": latin("čćđšž", without="qwxy"),
    "sk": latin("áäčďéíĺľňóôŕšťúýž", without="qw"),
    "sl": latin("čšž", without="qwxy"),
    "es": latin("áéíñóúü", without="kw"),
    "sv": latin("åäöé", without="qwxz"),
    "th": Writing(("THAI",), stop=""),
    "tr": latin("âçğıİîöşûü", without="qwx"),
    "uk": cyrillic("абвгґдеєжзиіїйклмнопрстуфхцчшщьюя"),
    "vi": latin("àảãáạăằẳẵắặâầẩẫấậđèẻẽéẹêềểễếệìỉĩíịòỏõóọôồổỗốộơờởỡớợùủũúụưừửữứựỳỷỹýỵ", without="fjwz"),
    "af": latin("áèéêëíîïóôöúûü", without="cqxz"),
    "sq": latin("çë", without="w"),
    "am": Writing(("ETHIOPIC",), stop="።", marks="፣፤"),
    "hy": Writing(("ARMENIAN",), "աբգդեզէըթժիլխծկհձղճմյնշոչպջռսվտրցւփքօֆև", stop="։", marks="՝"),
    "as": Writing(("BENGALI",), absent="র", stop="।"),
    "az": latin("çəğıİöşü", without="w"),
    "be": cyrillic("абвгдеёжзійклмнопрстуўфхцчшыьэюя"),
    "bn": Writing(("BENGALI",), absent="ৰৱ", stop="।"),
    "bs": latin("čćđšž", without="qwxy"),
    "chr": Writing(("CHEROKEE",)),
    "fil": latin("ñ", without="qvxz"),
    "ka": Writing(("GEORGIAN",), "აბგდევზთიკლმნოპჟრსტუფქღყშჩცძწჭხჯჰ"),
    "gu": Writing(("GUJARATI",)),
    "hi": Writing(("DEVANAGARI",), absent="ळऴऩऱ", stop="।"),
    "is": latin("áðéíóúýþæö", without="cqwz"),
    "ga": latin("áéíóú", without="kqwyxz"),
    "kn": Writing(("KANNADA",), marks="\u200c"),
    "kk": cyrillic(RUSSIAN + "әғқңөұүһі"),
    "km": Writing(("KHMER",), marks="\u200b", stop="។"),
    "kok": Writing(("DEVANAGARI",)),
    "lo": Writing(("LAO",)),
    "lb": latin("äéëöü"),
    "mk": cyrillic("абвгдѓежзѕијклљмнњопрстќуфхцчџшѐѝ"),
    "ms": latin(without="vx"),
    "ml": Writing(("MALAYALAM",), marks="\u200c"),
    "mt": latin("ċġħżàèìòù", without="y"),
    "mi": latin("āēīōū", without="bcdfjlqsvxyz"),
    "mr": Writing(("DEVANAGARI",), absent="ऴऩ"),
    "ne": Writing(("DEVANAGARI",), absent="ळऴऩऱ", stop="।"),
    "or": Writing(("ORIYA",), stop="।"),
    "fa": Writing(("ARABIC",), "ءآأؤئابپتثجچحخدذرزژسشصضطظعغفقکگلمنوهی\u064b", marks="\u200c،"),
    "pa": Writing(("GURMUKHI",), stop="।"),
    "qu": latin("ñáéíóú", without="x"),
    "gd": latin("àèìòù", without="jkqvwxyz"),
    "sr": cyrillic(SERBIAN),
    "ta": Writing(("TAMIL",)),
    "tt": cyrillic(RUSSIAN + "әөүҗңһ"),
    "te": Writing(("TELUGU",), marks="\u200c"),
    "ur": Writing(("ARABIC",), "ءآأؤئابپتٹثجچحخدڈذرڑزژسشصضطظعغفقکگلمنںوہھۂۃیے", stop="۔", marks="،"),
    "ug": Writing(("ARABIC",), "ئابپتجچخدرزژسشغفقكگڭلمنھوۇۆۈۋېىيە", marks="،"),
    "uz": latin("ʻʼ", without="w"),
    "cy": latin("âêîôûŵŷäëïöáé", without="kqvxz"),
}
