<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>Durations</name>
    <message>
        <source>d</source>
        <translation>日</translation>
    </message>
    <message>
        <source>day</source>
        <translation>日間</translation>
    </message>
    <message>
        <source>days</source>
        <translation>日間</translation>
    </message>
    <message>
        <source>h</source>
        <translation>時</translation>
    </message>
    <message>
        <source>hour</source>
        <translation>時間</translation>
    </message>
    <message>
        <source>hours</source>
        <translation>時間</translation>
    </message>
    <message>
        <source>m</source>
        <translation>分</translation>
    </message>
    <message>
        <source>minute</source>
        <translation>分間</translation>
    </message>
    <message>
        <source>minutes</source>
        <translation>分間</translation>
    </message>
    <message>
        <source>s</source>
        <translation>秒</translation>
    </message>
    <message>
        <source>second</source>
        <translation>秒間</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>秒間</translation>
    </message>
    <message>
        <source>w</source>
        <translation>週</translation>
    </message>
    <message>
        <source>week</source>
        <translation>週間</translation>
    </message>
    <message>
        <source>weeks</source>
        <translation>週間</translation>
    </message>
</context>
<context>
    <name>KTArrayColumn</name>
    <message>
        <source>This value cannot be stored here.</source>
        <translation>この値はここに保存できません。</translation>
    </message>
</context>
<context>
    <name>KTBindingOptions</name>
    <message>
        <source>Multiple values</source>
        <translation>複数の値</translation>
    </message>
    <message>
        <source>Not applicable</source>
        <translation>該当なし</translation>
    </message>
    <message>
        <source>Nothing is selected</source>
        <translation>選択項目なし</translation>
    </message>
</context>
<context>
    <name>KTFormatterDelegate</name>
    <message>
        <source>This value cannot be stored here.</source>
        <translation>この値はここに保存できません。</translation>
    </message>
</context>
<context>
    <name>KTFormatterEdit</name>
    <message>
        <source>A value is needed here.</source>
        <translation>ここには値が必要です。</translation>
    </message>
    <message>
        <source>This value cannot be stored here.</source>
        <translation>この値はここに保存できません。</translation>
    </message>
</context>
<context>
    <name>KTLogger</name>
    <message>
        <source>0 (off)</source>
        <translation>0（オフ）</translation>
    </message>
    <message>
        <source>7 (most detail)</source>
        <translation>7（最も詳細）</translation>
    </message>
    <message>
        <source>Clear all logging state</source>
        <translation>すべてのログ設定を消去</translation>
    </message>
    <message>
        <source>Display File and Line</source>
        <translation>ファイルと行を表示</translation>
    </message>
    <message>
        <source>Log To Console</source>
        <translation>コンソールにログを出力</translation>
    </message>
    <message>
        <source>Log To File</source>
        <translation>ファイルにログを出力</translation>
    </message>
</context>
<context>
    <name>Localizable</name>
    <message>
        <source>A percentage does not belong into this field.</source>
        <translation>この欄にパーセント値は入力できません。</translation>
    </message>
    <message>
        <source>A word of the text means several units.</source>
        <translation>複数の単位を意味する語が含まれています。</translation>
    </message>
    <message>
        <source>Could not convert to a time</source>
        <translation>時間に変換できませんでした</translation>
    </message>
    <message>
        <source>Formatting error: the text cannot be read as a date.</source>
        <translation>書式エラー：テキストを日付として読み取れません。</translation>
    </message>
    <message>
        <source>Months and years have no fixed length.</source>
        <translation>月と年の長さは一定ではありません。</translation>
    </message>
    <message>
        <source>Nothing can be divided by zero.</source>
        <translation>ゼロで割ることはできません。</translation>
    </message>
    <message>
        <source>Only a part of one can stand behind a whole number.</source>
        <translation>整数の後に置けるのは1より小さい分数だけです。</translation>
    </message>
    <message>
        <source>The date is on another day of the week.</source>
        <translation>この日付の曜日は異なります。</translation>
    </message>
    <message>
        <source>The date is on another weekday.</source>
        <translation>この日付の曜日は異なります。</translation>
    </message>
    <message>
        <source>The duration is too long.</source>
        <translation>時間が長すぎます。</translation>
    </message>
    <message>
        <source>The month has no such day.</source>
        <translation>この月にその日はありません。</translation>
    </message>
    <message>
        <source>The number has more digits than can be kept.</source>
        <translation>数値の桁数が多すぎて保持できません。</translation>
    </message>
    <message>
        <source>The number is too large.</source>
        <translation>数値が大きすぎます。</translation>
    </message>
    <message>
        <source>The place has another time than the offset says.</source>
        <translation>この場所の時刻は指定された時差と一致しません。</translation>
    </message>
    <message>
        <source>The separators do not stand where groups of digits end or the fraction begins.</source>
        <translation>区切り記号が桁区切りまたは小数点の位置にありません。</translation>
    </message>
    <message>
        <source>The separators may stand before the fraction or between groups.</source>
        <translation>区切り記号が小数点か桁区切りか判断できません。</translation>
    </message>
    <message>
        <source>The stroke may stand before a fraction or in the middle of one.</source>
        <translation>線が分数の前にあるのか、分数の中にあるのか判断できません。</translation>
    </message>
    <message>
        <source>The text cannot be read as a date.</source>
        <translation>テキストを日付として読み取れません。</translation>
    </message>
    <message>
        <source>The text cannot be read.</source>
        <translation>テキストを読み取れません。</translation>
    </message>
    <message>
        <source>The text contradicts what the other texts of its column are read by.</source>
        <translation>この列のほかのテキストの読み取り方と矛盾しています。</translation>
    </message>
    <message>
        <source>The text is in no form of dates and times that is known.</source>
        <translation>既知の日付または時刻の形式ではありません。</translation>
    </message>
    <message>
        <source>The text is no amount in %1, or has something else in it.</source>
        <translation>テキストが%1の金額でないか、ほかの文字を含んでいます。</translation>
    </message>
    <message>
        <source>The text is no number, or has something else in it.</source>
        <translation>テキストが数値でないか、ほかの文字を含んでいます。</translation>
    </message>
    <message>
        <source>The text is not a number.</source>
        <translation>テキストは数値ではありません。</translation>
    </message>
    <message>
        <source>The text names the currency %1; this field has %2.</source>
        <translation>テキストの通貨は%1ですが、この欄の通貨は%2です。</translation>
    </message>
    <message>
        <source>The text says neither a day nor a time.</source>
        <translation>テキストに日付も時刻も含まれていません。</translation>
    </message>
    <message>
        <source>The text says no time of day.</source>
        <translation>テキストに時刻が含まれていません。</translation>
    </message>
    <message>
        <source>The time of day is missing.</source>
        <translation>時刻がありません。</translation>
    </message>
    <message>
        <source>The units do not stand from the largest to the smallest.</source>
        <translation>単位が大きい順に並んでいません。</translation>
    </message>
    <message>
        <source>The week has no such day.</source>
        <translation>週にそのような日はありません。</translation>
    </message>
    <message>
        <source>The word means several days.</source>
        <translation>この語は複数の日を意味します。</translation>
    </message>
    <message>
        <source>The year has no such day.</source>
        <translation>この年にその日はありません。</translation>
    </message>
    <message>
        <source>The year has no such week.</source>
        <translation>この年にその週はありません。</translation>
    </message>
    <message>
        <source>There are several zones of this name.</source>
        <translation>この名前のタイムゾーンは複数あります。</translation>
    </message>
    <message>
        <source>There are two dates.</source>
        <translation>日付が2つあります。</translation>
    </message>
    <message>
        <source>There are two times.</source>
        <translation>時刻が2つあります。</translation>
    </message>
    <message>
        <source>There is no leap second then.</source>
        <translation>この時点にうるう秒はありません。</translation>
    </message>
    <message>
        <source>There is no such date.</source>
        <translation>この日付は存在しません。</translation>
    </message>
    <message>
        <source>There is no such month.</source>
        <translation>この月は存在しません。</translation>
    </message>
    <message>
        <source>There is no such time in this zone.</source>
        <translation>このタイムゾーンにその時刻は存在しません。</translation>
    </message>
    <message>
        <source>There is no such time of day.</source>
        <translation>この時刻は存在しません。</translation>
    </message>
    <message>
        <source>There is no such time.</source>
        <translation>この時刻は存在しません。</translation>
    </message>
    <message>
        <source>There is no summer time in this zone then.</source>
        <translation>この時点では、このタイムゾーンは夏時間ではありません。</translation>
    </message>
    <message>
        <source>There is no year 0.</source>
        <translation>0年は存在しません。</translation>
    </message>
    <message>
        <source>Which day is meant cannot be told from the weekday alone.</source>
        <translation>曜日だけでは、どの日か判断できません。</translation>
    </message>
    <message>
        <source>Which night is meant cannot be told.</source>
        <translation>どの夜を指すのか判断できません。</translation>
    </message>
    <message>
        <source>iSight Picture</source>
        <translation>iSight の写真</translation>
    </message>
</context>
<context>
    <name>NSAlert</name>
    <message>
        <source>Do not show this message again</source>
        <translation>このメッセージを今後表示しない</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
</TS>
