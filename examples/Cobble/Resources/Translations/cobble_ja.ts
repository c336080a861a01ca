<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>ColumnEditor</name>
    <message>
        <source>(without a name)</source>
        <translation>(名前なし)</translation>
    </message>
    <message>
        <source>1:30 is hours and minutes</source>
        <translation>1:30 は時間と分</translation>
    </message>
    <message>
        <source>1:30 is minutes and seconds</source>
        <translation>1:30 は分と秒</translation>
    </message>
    <message>
        <source>As found</source>
        <translation>自動判定</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>Automatic (%1)</source>
        <translation>自動（%1）</translation>
    </message>
    <message>
        <source>Day, month, year</source>
        <translation>日・月・年</translation>
    </message>
    <message>
        <source>Month, day, year</source>
        <translation>月・日・年</translation>
    </message>
    <message>
        <source>Year, month, day</source>
        <translation>年・月・日</translation>
    </message>
</context>
<context>
    <name>CopiedRecords</name>
    <message>
        <source>these are no copied records</source>
        <translation>コピーされたレコードではありません</translation>
    </message>
</context>
<context>
    <name>Counts</name>
    <message numerus="yes">
        <source>%1 of %2 record(s)</source>
        <translation>
            <numerusform>%2 件中 %1 件</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 record(s)</source>
        <translation>
            <numerusform>%1 件のレコード</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DetailPane</name>
    <message numerus="yes">
        <source>%1 record(s) selected</source>
        <translation>
            <numerusform>%1 件のレコードを選択中</numerusform>
        </translation>
    </message>
    <message>
        <source>Multiple values</source>
        <translation>複数の値</translation>
    </message>
    <message>
        <source>so many records do not get a file at once</source>
        <translation>これほど多くのレコードに一度にファイルを付けることはできません</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>&amp;Copy</source>
        <translation>コピー(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>複製(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;New Record</source>
        <translation>新規レコード(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>貼り付け(&amp;P)</translation>
    </message>
    <message>
        <source>Copy C&amp;ell</source>
        <translation>セルをコピー(&amp;E)</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>切り取り(&amp;T)</translation>
    </message>
    <message>
        <source>Fill Do&amp;wn</source>
        <translation>下方向にコピー(&amp;W)</translation>
    </message>
    <message>
        <source>Paste &amp;Into Cells</source>
        <translation>セルに貼り付け(&amp;I)</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>すべて選択(&amp;A)</translation>
    </message>
</context>
<context>
    <name>ExportSheet</name>
    <message>
        <source>&amp;Choose…</source>
        <translation>選択(&amp;C)…</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>ファイル(&amp;F):</translation>
    </message>
    <message>
        <source>&amp;Records:</source>
        <translation>レコード(&amp;R):</translation>
    </message>
    <message>
        <source>All of the library</source>
        <translation>ライブラリのすべて</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Cancelled. The file was not written.</source>
        <translation>キャンセルしました。ファイルは書き込まれませんでした。</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>書き出し</translation>
    </message>
    <message>
        <source>Please choose a file.</source>
        <translation>ファイルを選択してください。</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>There is a file of that name. Export once more to replace it.</source>
        <translation>同じ名前のファイルがあります。置き換えるには、もう一度書き出してください。</translation>
    </message>
    <message>
        <source>There is no database.</source>
        <translation>データベースがありません。</translation>
    </message>
    <message>
        <source>Those selected (%1)</source>
        <translation>選択中のもの（%1）</translation>
    </message>
    <message>
        <source>Those shown (%1)</source>
        <translation>表示中のもの（%1）</translation>
    </message>
</context>
<context>
    <name>FieldChanges</name>
    <message>
        <source>Record %1: “%2”</source>
        <translation>レコード %1:「%2」</translation>
    </message>
    <message>
        <source>The fields get another order.</source>
        <translation>フィールドの並び順が変わります。</translation>
    </message>
    <message numerus="yes">
        <source>and %1 more</source>
        <translation>
            <numerusform>ほか %1 件</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” gets the name “%2”.</source>
        <translation>「%1」の名前が「%2」になります。</translation>
    </message>
    <message>
        <source>“%1” gets the type %2.</source>
        <translation>「%1」の種類が%2になります。</translation>
    </message>
    <message numerus="yes">
        <source>“%1” gets the type %2. %3 value(s) cannot be read and will be emptied.</source>
        <translation>
            <numerusform>「%1」の種類が%2になります。%3 件の値は読み取れないため空になります。</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” gets the type %2. All values can be read.</source>
        <translation>「%1」の種類が%2になります。すべての値を読み取れます。</translation>
    </message>
    <message>
        <source>“%1” is new.</source>
        <translation>「%1」は新しいフィールドです。</translation>
    </message>
    <message>
        <source>“%1” is removed.</source>
        <translation>「%1」は削除されます。</translation>
    </message>
    <message numerus="yes">
        <source>“%1” is removed. %2 record(s) have a value there.</source>
        <translation>
            <numerusform>「%1」は削除されます。%2 件のレコードに値があります。</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” is removed. No record has a value there.</source>
        <translation>「%1」は削除されます。値のあるレコードはありません。</translation>
    </message>
    <message>
        <source>“%1” is shown in another way.</source>
        <translation>「%1」の表示のしかたが変わります。</translation>
    </message>
</context>
<context>
    <name>FieldListModel</name>
    <message>
        <source>Example</source>
        <translation>例</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>New Field</source>
        <translation>新しいフィールド</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>種類</translation>
    </message>
</context>
<context>
    <name>FieldNameDelegate</name>
    <message>
        <source>Name of the field</source>
        <translation>フィールドの名前</translation>
    </message>
</context>
<context>
    <name>FieldOptionsEditor</name>
    <message>
        <source>Abbreviated units</source>
        <translation>単位を省略</translation>
    </message>
    <message>
        <source>Currency:</source>
        <translation>通貨:</translation>
    </message>
    <message>
        <source>Date:</source>
        <translation>日付:</translation>
    </message>
    <message>
        <source>Decimal places:</source>
        <translation>小数点以下の桁数:</translation>
    </message>
    <message>
        <source>Full</source>
        <translation>完全</translation>
    </message>
    <message>
        <source>Highlighted negative values</source>
        <translation>負の値を強調</translation>
    </message>
    <message>
        <source>Long</source>
        <translation>長い</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>中</translation>
    </message>
    <message>
        <source>Negative values in parentheses</source>
        <translation>負の値をかっこで囲む</translation>
    </message>
    <message>
        <source>Short</source>
        <translation>短い</translation>
    </message>
    <message>
        <source>Thousands separators</source>
        <translation>桁区切り</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>時刻:</translation>
    </message>
    <message>
        <source>With the year</source>
        <translation>年を表示</translation>
    </message>
</context>
<context>
    <name>FieldSheet</name>
    <message>
        <source>&amp;Add</source>
        <translation>追加(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>削除(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>種類(&amp;T):</translation>
    </message>
    <message>
        <source>C&amp;hange Fields</source>
        <translation>フィールドを変更(&amp;H)</translation>
    </message>
    <message>
        <source>Fields</source>
        <translation>フィールド</translation>
    </message>
    <message>
        <source>Fields of “%1”</source>
        <translation>「%1」のフィールド</translation>
    </message>
    <message>
        <source>Looking at the values…</source>
        <translation>値を調べています…</translation>
    </message>
    <message>
        <source>Move &amp;Down</source>
        <translation>下へ移動(&amp;D)</translation>
    </message>
    <message>
        <source>Move &amp;Up</source>
        <translation>上へ移動(&amp;U)</translation>
    </message>
    <message>
        <source>Nothing is changed yet.</source>
        <translation>まだ何も変更されていません。</translation>
    </message>
    <message>
        <source>Nothing is stored yet. These will be the changes:</source>
        <translation>まだ保存されていません。変更される内容:</translation>
    </message>
    <message>
        <source>Re&amp;name</source>
        <translation>名前の変更(&amp;N)</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>What changes</source>
        <translation>変更される内容</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>理由</translation>
    </message>
</context>
<context>
    <name>FieldSummary</name>
    <message>
        <source>From %1 to %2</source>
        <translation>%1 から %2 まで</translation>
    </message>
    <message>
        <source>Sum %1 · Average %2 · Least %3 · Most %4</source>
        <translation>合計 %1 · 平均 %2 · 最小 %3 · 最大 %4</translation>
    </message>
    <message>
        <source>too large</source>
        <translation>大きすぎます</translation>
    </message>
</context>
<context>
    <name>FieldTitle</name>
    <message>
        <source>%1:</source>
        <translation>%1:</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>無題</translation>
    </message>
</context>
<context>
    <name>FieldTypeTitles</name>
    <message>
        <source>Currency</source>
        <translation>通貨</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日付</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>日付と時刻</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>時間の長さ</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>数</translation>
    </message>
    <message>
        <source>Phone number</source>
        <translation>電話番号</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>テキスト</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>時刻</translation>
    </message>
</context>
<context>
    <name>FileDrop</name>
    <message>
        <source>Let go to import the file.</source>
        <translation>離すとファイルを読み込みます。</translation>
    </message>
    <message>
        <source>Only files of this computer can be dropped here.</source>
        <translation>ここにドロップできるのは、このコンピュータのファイルだけです。</translation>
    </message>
    <message>
        <source>Please drop one file at a time.</source>
        <translation>ファイルは一つずつドロップしてください。</translation>
    </message>
    <message>
        <source>“%1” is no file that can be imported: these are csv, tsv, txt and vcf.</source>
        <translation>「%1」は読み込めるファイルではありません。読み込めるのは csv、tsv、txt、vcf です。</translation>
    </message>
    <message>
        <source>“%1” is no file.</source>
        <translation>「%1」はファイルではありません。</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>&amp;Remove Filter</source>
        <translation>フィルタを解除(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>保存(&amp;S)…</translation>
    </message>
    <message>
        <source>All conditions are met</source>
        <translation>すべての条件を満たす</translation>
    </message>
    <message>
        <source>Any condition is met</source>
        <translation>いずれかの条件を満たす</translation>
    </message>
    <message>
        <source>As &amp;text:</source>
        <translation>テキスト(&amp;T):</translation>
    </message>
    <message>
        <source>Filter as Text</source>
        <translation>テキストとしてのフィルタ</translation>
    </message>
    <message>
        <source>How Conditions Are Joined</source>
        <translation>条件の組み合わせ方</translation>
    </message>
    <message>
        <source>Keeps the filter in the list of libraries</source>
        <translation>フィルタをライブラリの一覧に残します</translation>
    </message>
    <message>
        <source>This filter can only be changed as text.</source>
        <translation>このフィルタはテキストとしてのみ変更できます。</translation>
    </message>
</context>
<context>
    <name>FilterRow</name>
    <message>
        <source>Add Condition</source>
        <translation>条件を追加</translation>
    </message>
    <message>
        <source>Comparison</source>
        <translation>比較</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>フィールド</translation>
    </message>
    <message>
        <source>Last Value</source>
        <translation>最後の値</translation>
    </message>
    <message>
        <source>Remove Condition</source>
        <translation>条件を削除</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>and</source>
        <translation>から</translation>
    </message>
</context>
<context>
    <name>FilterTexts</name>
    <message>
        <source>%1 (behind “%2”)</source>
        <translation>%1 (「%2」の後)</translation>
    </message>
    <message>
        <source>AND or OR is missing here</source>
        <translation>ここに AND または OR がありません</translation>
    </message>
    <message>
        <source>BETWEEN needs two values with AND between them</source>
        <translation>BETWEEN には AND でつないだ二つの値が必要です</translation>
    </message>
    <message>
        <source>a comparison such as = or CONTAINS is missing behind the field</source>
        <translation>フィールドの後に = や CONTAINS などの比較がありません</translation>
    </message>
    <message>
        <source>a field is missing here</source>
        <translation>ここにフィールドがありません</translation>
    </message>
    <message>
        <source>a name is missing</source>
        <translation>名前がありません</translation>
    </message>
    <message>
        <source>a value is missing here</source>
        <translation>ここに値がありません</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>読み取れません</translation>
    </message>
    <message>
        <source>it is no month, no year and no month of a year</source>
        <translation>月でも年でも年月でもありません</translation>
    </message>
    <message>
        <source>it is no regular expression: %1</source>
        <translation>正規表現ではありません: %1</translation>
    </message>
    <message>
        <source>it takes too long to find out what matches “%1”</source>
        <translation>「%1」に一致するかどうかを調べるのに時間がかかりすぎます</translation>
    </message>
    <message>
        <source>only [c], [d], [cd] and [] can stand here</source>
        <translation>ここに置けるのは [c]、[d]、[cd]、[] だけです</translation>
    </message>
    <message>
        <source>several fields are called “%1”</source>
        <translation>「%1」という名前のフィールドが複数あります</translation>
    </message>
    <message>
        <source>the filter cannot be kept: %1</source>
        <translation>フィルタを保存できません: %1</translation>
    </message>
    <message>
        <source>the filter is too long</source>
        <translation>フィルタが長すぎます</translation>
    </message>
    <message>
        <source>the list is not closed</source>
        <translation>リストが閉じられていません</translation>
    </message>
    <message>
        <source>the parenthesis is not closed</source>
        <translation>括弧が閉じられていません</translation>
    </message>
    <message>
        <source>the quotation mark is not closed</source>
        <translation>引用符が閉じられていません</translation>
    </message>
    <message>
        <source>there are too many parentheses</source>
        <translation>括弧が多すぎます</translation>
    </message>
    <message>
        <source>there is a library “%1” already</source>
        <translation>ライブラリ「%1」はすでにあります</translation>
    </message>
    <message>
        <source>there is no field “%1”</source>
        <translation>フィールド「%1」はありません</translation>
    </message>
    <message>
        <source>there is no library “%1”</source>
        <translation>ライブラリ「%1」はありません</translation>
    </message>
    <message>
        <source>“%1” is there twice</source>
        <translation>「%1」が二回使われています</translation>
    </message>
    <message>
        <source>“%1”: %2</source>
        <translation>「%1」: %2</translation>
    </message>
</context>
<context>
    <name>FilterWords</name>
    <message>
        <source>begins with</source>
        <translation>次で始まる</translation>
    </message>
    <message>
        <source>contains</source>
        <translation>次を含む</translation>
    </message>
    <message>
        <source>does not contain</source>
        <translation>次を含まない</translation>
    </message>
    <message>
        <source>ends with</source>
        <translation>次で終わる</translation>
    </message>
    <message>
        <source>is</source>
        <translation>次と等しい</translation>
    </message>
    <message>
        <source>is after</source>
        <translation>次より後</translation>
    </message>
    <message>
        <source>is at least</source>
        <translation>次以上</translation>
    </message>
    <message>
        <source>is at most</source>
        <translation>次以下</translation>
    </message>
    <message>
        <source>is before</source>
        <translation>次より前</translation>
    </message>
    <message>
        <source>is between</source>
        <translation>次の範囲内</translation>
    </message>
    <message>
        <source>is empty</source>
        <translation>空である</translation>
    </message>
    <message>
        <source>is from</source>
        <translation>次以降</translation>
    </message>
    <message>
        <source>is in the month or year</source>
        <translation>次の月または年にある</translation>
    </message>
    <message>
        <source>is less than</source>
        <translation>次より小さい</translation>
    </message>
    <message>
        <source>is more than</source>
        <translation>次より大きい</translation>
    </message>
    <message>
        <source>is not</source>
        <translation>次と等しくない</translation>
    </message>
    <message>
        <source>is not empty</source>
        <translation>空でない</translation>
    </message>
    <message>
        <source>is not in the month or year</source>
        <translation>次の月または年にない</translation>
    </message>
    <message>
        <source>is one of</source>
        <translation>次のいずれか</translation>
    </message>
    <message>
        <source>is until</source>
        <translation>次以前</translation>
    </message>
    <message>
        <source>looks like (? and *)</source>
        <translation>次のパターンに合う (? と *)</translation>
    </message>
    <message>
        <source>matches the expression</source>
        <translation>次の正規表現に合う</translation>
    </message>
    <message>
        <source>stands before</source>
        <translation>並び順で次より前</translation>
    </message>
    <message>
        <source>stands behind</source>
        <translation>並び順で次より後</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Cobble Help</source>
        <translation>Cobble ヘルプ</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>キーボードショートカット</translation>
    </message>
</context>
<context>
    <name>ImportSheet</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>&amp;Choose…</source>
        <translation>選択(&amp;C)…</translation>
    </message>
    <message>
        <source>&amp;Encoding:</source>
        <translation>文字コード(&amp;E):</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>ファイル(&amp;F):</translation>
    </message>
    <message>
        <source>&amp;Library:</source>
        <translation>ライブラリ(&amp;L):</translation>
    </message>
    <message>
        <source>&amp;Media:</source>
        <translation>メディア(&amp;M):</translation>
    </message>
    <message>
        <source>&amp;Replace the library of that name</source>
        <translation>同じ名前のライブラリを置き換える(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Separator:</source>
        <translation>区切り文字(&amp;S):</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>型(&amp;T):</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>すべてのファイル (*)</translation>
    </message>
    <message>
        <source>All values can be read.</source>
        <translation>すべての値を読み取れます。</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>Bar |</source>
        <translation>縦線 |</translation>
    </message>
    <message>
        <source>C&amp;olumn:</source>
        <translation>列(&amp;O):</translation>
    </message>
    <message>
        <source>C&amp;urrency:</source>
        <translation>通貨(&amp;U):</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Cancelled. Nothing was stored.</source>
        <translation>キャンセルしました。何も保存されませんでした。</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>列</translation>
    </message>
    <message>
        <source>Columns that name files elsewhere</source>
        <translation>別の場所のファイルを指す列</translation>
    </message>
    <message>
        <source>Comma</source>
        <translation>コンマ</translation>
    </message>
    <message>
        <source>F&amp;irst row holds the headers</source>
        <translation>先頭行は見出し(&amp;I)</translation>
    </message>
    <message>
        <source>Files beside the imported one are copied anyway. Columns that are named here may bring any file of yours along, and download others.</source>
        <translation>読み込むファイルと同じ場所にあるファイルは、いずれにしてもコピーされます。ここに挙げた列は、ほかの場所にあるファイルを取り込んだり、ダウンロードしたりできます。</translation>
    </message>
    <message>
        <source>First rows as they would be stored</source>
        <translation>保存される先頭の行</translation>
    </message>
    <message>
        <source>Header in the library</source>
        <translation>ライブラリでの見出し</translation>
    </message>
    <message>
        <source>Im&amp;port as</source>
        <translation>読み込む名前(&amp;P)</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>読み込み</translation>
    </message>
    <message>
        <source>Name of the file</source>
        <translation>ファイルの名前</translation>
    </message>
    <message>
        <source>Nothing was stored: %1</source>
        <translation>何も保存されませんでした: %1</translation>
    </message>
    <message>
        <source>Please choose a file.</source>
        <translation>ファイルを選択してください。</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>Rea&amp;d:</source>
        <translation>読み方(&amp;D):</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>読み込み中…</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>行</translation>
    </message>
    <message>
        <source>Rows: %1</source>
        <translation>行数: %1</translation>
    </message>
    <message>
        <source>Semicolon</source>
        <translation>セミコロン</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>スペース</translation>
    </message>
    <message>
        <source>T&amp;yped in:</source>
        <translation>書式(&amp;Y):</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>タブ</translation>
    </message>
    <message>
        <source>Tables and cards (*.csv *.tsv *.txt *.vcf)</source>
        <translation>表と連絡先カード (*.csv *.tsv *.txt *.vcf)</translation>
    </message>
    <message>
        <source>The file has other columns than those that you have chosen for. Please look at them and try again.</source>
        <translation>ファイルの列が、設定を選んだときの列と異なります。列を確認して、もう一度やり直してください。</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>Values that cannot be read</source>
        <translation>読み取れない値</translation>
    </message>
    <message>
        <source>Values that cannot be read, and would be kept as typed: %1</source>
        <translation>読み取れず、入力のまま残る値: %1</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>理由</translation>
    </message>
    <message>
        <source>Yours</source>
        <translation>お使いの設定</translation>
    </message>
    <message>
        <source>a quote in line %1 is never closed</source>
        <translation>%1 行目の引用符が閉じられていません</translation>
    </message>
    <message>
        <source>separated by bars</source>
        <translation>縦線区切り</translation>
    </message>
    <message>
        <source>separated by commas</source>
        <translation>コンマ区切り</translation>
    </message>
    <message>
        <source>separated by semicolons</source>
        <translation>セミコロン区切り</translation>
    </message>
    <message>
        <source>separated by spaces</source>
        <translation>空白区切り</translation>
    </message>
    <message>
        <source>separated by tabs</source>
        <translation>タブ区切り</translation>
    </message>
    <message>
        <source>separated by “%1”</source>
        <translation>「%1」区切り</translation>
    </message>
    <message>
        <source>with fewer or more fields than there are headers: %1</source>
        <translation>見出しと数が合わない行: %1</translation>
    </message>
</context>
<context>
    <name>ImportSummary</name>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1 more</source>
        <translation>ほか %1 件</translation>
    </message>
    <message>
        <source>&amp;Columns:</source>
        <translation>列(&amp;C):</translation>
    </message>
    <message>
        <source>&amp;Values kept as they were typed:</source>
        <translation>入力されたまま保存された値(&amp;V):</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>列</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>列</translation>
    </message>
    <message>
        <source>Empty</source>
        <translation>空</translation>
    </message>
    <message>
        <source>Import Finished</source>
        <translation>読み込みの完了</translation>
    </message>
    <message>
        <source>Kept as typed</source>
        <translation>入力のまま</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>読み取り</translation>
    </message>
    <message>
        <source>Read as</source>
        <translation>読み取り方</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>行</translation>
    </message>
    <message numerus="yes">
        <source>Stored %1 record(s) in the library “%2”.</source>
        <translation>
            <numerusform>%1 件のレコードをライブラリ「%2」に保存しました。</numerusform>
        </translation>
    </message>
    <message>
        <source>Type</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>Values kept as they were typed</source>
        <translation>入力されたまま保存された値</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>理由</translation>
    </message>
</context>
<context>
    <name>LibraryActions</name>
    <message>
        <source>New Field</source>
        <translation>新しいフィールド</translation>
    </message>
    <message>
        <source>New Library</source>
        <translation>新しいライブラリ</translation>
    </message>
    <message>
        <source>Removed the library “%1”</source>
        <translation>ライブラリ「%1」を削除しました</translation>
    </message>
    <message>
        <source>Rename Library</source>
        <translation>ライブラリの名前の変更</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>&amp;About Cobble</source>
        <translation>Cobble について(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>ウィンドウを閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>書き出し(&amp;E)…</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>検索(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>読み込み(&amp;I)…</translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts</source>
        <translation>キーボードショートカット(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Library</source>
        <translation>ライブラリ(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Logging</source>
        <translation>ログ(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;New Window</source>
        <translation>新しいウィンドウ(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Record Count</source>
        <translation>レコードの数(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>やり直す(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Rename Library…</source>
        <translation>ライブラリの名前を変更(&amp;R)…</translation>
    </message>
    <message>
        <source>&amp;Silenced Alerts…</source>
        <translation>表示しない警告(&amp;S)…</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>Cobble &amp;Help</source>
        <translation>Cobble ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>Delete Rec&amp;ords</source>
        <translation>レコードを削除(&amp;O)</translation>
    </message>
    <message>
        <source>F&amp;ields…</source>
        <translation>フィールド(&amp;I)…</translation>
    </message>
    <message>
        <source>Fi&amp;lter…</source>
        <translation>フィルタ(&amp;L)…</translation>
    </message>
    <message>
        <source>New &amp;Field…</source>
        <translation>新しいフィールド(&amp;F)…</translation>
    </message>
    <message>
        <source>New &amp;Library…</source>
        <translation>新しいライブラリ(&amp;L)…</translation>
    </message>
    <message>
        <source>Re&amp;move Library</source>
        <translation>ライブラリを削除(&amp;M)</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Import…</source>
        <translation>読み込み…</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>ライブラリ</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>レコード</translation>
    </message>
    <message>
        <source>Records</source>
        <translation>レコード</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
</context>
<context>
    <name>MainWindowController</name>
    <message>
        <source>%1 – Cobble</source>
        <translation>%1 – Cobble</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>やり直す(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>「%1」をやり直す(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>「%1」を元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>A database for one person.</source>
        <translation>ひとりのためのデータベース。</translation>
    </message>
    <message>
        <source>All selected records get the same value.</source>
        <translation>選択したすべてのレコードが同じ値になります。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Choose a library from the list.</source>
        <translation>一覧からライブラリを選択してください。</translation>
    </message>
    <message numerus="yes">
        <source>Deleted %1 record(s)</source>
        <translation>
            <numerusform>%1 件のレコードを削除しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Exported %1 record(s)</source>
        <translation>
            <numerusform>%1 件のレコードを書き出しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Exported %1 record(s) to %2</source>
        <translation>
            <numerusform>%1 件のレコードを %2 に書き出しました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Imported %1 record(s)</source>
        <translation>
            <numerusform>%1 件のレコードを読み込みました</numerusform>
        </translation>
    </message>
    <message>
        <source>Only one import or export at a time: please wait until it is done.</source>
        <translation>読み込みと書き出しは一度に 1 つだけです。終わるまでお待ちください。</translation>
    </message>
    <message>
        <source>Searching… %1</source>
        <translation>検索中… %1</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>設定</translation>
    </message>
    <message numerus="yes">
        <source>Set “%1” of %2 record(s)?</source>
        <translation>
            <numerusform>%2 件のレコードの「%1」を設定しますか?</numerusform>
        </translation>
    </message>
    <message>
        <source>Sorting… %1</source>
        <translation>並べ替え中… %1</translation>
    </message>
    <message>
        <source>The filter no longer fits: %1</source>
        <translation>フィルタはもう合いません: %1</translation>
    </message>
    <message>
        <source>The filter of “%1” no longer fits: %2</source>
        <translation>「%1」のフィルタはもう合いません: %2</translation>
    </message>
    <message>
        <source>There are no libraries yet.
File ▸ Import… makes one of a table or of address cards.</source>
        <translation>ライブラリはまだありません。
「ファイル」▸「読み込み…」で、表や連絡先カードから作成できます。</translation>
    </message>
    <message>
        <source>There are no records yet.</source>
        <translation>レコードはまだありません。</translation>
    </message>
    <message>
        <source>“%1” was not stored as “%2”</source>
        <translation>“%1”は“%2”として保存されませんでした</translation>
    </message>
</context>
<context>
    <name>MediaField</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Mirror left and right</source>
        <translation>左右を反転</translation>
    </message>
    <message>
        <source>Mirror top and bottom</source>
        <translation>上下を反転</translation>
    </message>
    <message>
        <source>No file</source>
        <translation>ファイルなし</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Size in percent</source>
        <translation>サイズ (パーセント)</translation>
    </message>
    <message>
        <source>Turn left</source>
        <translation>左に回転</translation>
    </message>
    <message>
        <source>Turn right</source>
        <translation>右に回転</translation>
    </message>
</context>
<context>
    <name>NameSheet</name>
    <message>
        <source>&amp;Name:</source>
        <translation>名前(&amp;N):</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>型(&amp;T):</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>NothingFound</name>
    <message>
        <source>Show &amp;All</source>
        <translation>すべて表示(&amp;A)</translation>
    </message>
</context>
<context>
    <name>OpenBundle</name>
    <message>
        <source>%1 is no folder</source>
        <translation>%1 はフォルダではありません</translation>
    </message>
    <message>
        <source>an import or export is on its way; please wait until it is done</source>
        <translation>読み込みまたは書き出しの途中です。終わるまでお待ちください</translation>
    </message>
    <message>
        <source>another program has changed the database, which is read again; please try once more</source>
        <translation>別のプログラムがデータベースを変更したため、読み直しています。もう一度お試しください</translation>
    </message>
    <message>
        <source>the file cannot be copied</source>
        <translation>ファイルをコピーできません</translation>
    </message>
    <message>
        <source>there is no database</source>
        <translation>データベースがありません</translation>
    </message>
</context>
<context>
    <name>PastePlan</name>
    <message>
        <source>a text is no picture, and pictures of other databases are not here</source>
        <translation>テキストは画像ではなく、ほかのデータベースの画像はここにはありません</translation>
    </message>
    <message>
        <source>there is no field for this column</source>
        <translation>この列に対応するフィールドがありません</translation>
    </message>
    <message>
        <source>there is no record in this row</source>
        <translation>この行にはレコードがありません</translation>
    </message>
</context>
<context>
    <name>PasteProblems</name>
    <message numerus="yes">
        <source>%1 value(s) cannot be pasted. Nothing was stored yet.</source>
        <translation>
            <numerusform>%1個の値を貼り付けられません。まだ何も保存されていません。</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>フィールド</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Paste the Rest</source>
        <translation>残りを貼り付け</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>理由</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>行</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>テキスト</translation>
    </message>
    <message>
        <source>These are the first %1.</source>
        <translation>最初の%1個を表示しています。</translation>
    </message>
    <message>
        <source>Values that cannot be pasted</source>
        <translation>貼り付けられない値</translation>
    </message>
</context>
<context>
    <name>PendingInput</name>
    <message>
        <source>Discard</source>
        <translation>破棄</translation>
    </message>
    <message>
        <source>Keep Editing</source>
        <translation>編集を続ける</translation>
    </message>
    <message>
        <source>“%1” cannot be stored as “%2”.</source>
        <translation>“%1”は“%2”として保存できません。</translation>
    </message>
</context>
<context>
    <name>PictureInput</name>
    <message>
        <source>A field holds one file of this computer.</source>
        <translation>フィールドに入れられるのは、このコンピューターのファイル 1 つです。</translation>
    </message>
    <message>
        <source>Choose Picture</source>
        <translation>画像を選択</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>選択…</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>ペースト</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>The picture cannot be stored.</source>
        <translation>画像を保存できません。</translation>
    </message>
    <message>
        <source>There is no file and no picture to paste.</source>
        <translation>ペーストできるファイルも画像もありません。</translation>
    </message>
</context>
<context>
    <name>Reasons</name>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1、ほか %2 件</translation>
    </message>
    <message>
        <source>%1 cannot be looked at</source>
        <translation>%1 を調べられません</translation>
    </message>
    <message>
        <source>%1 is a link, or no file</source>
        <translation>%1 はリンクであるか、ファイルではありません</translation>
    </message>
    <message>
        <source>%1 of %2 values decide</source>
        <translation>%2個中%1個の値で決定</translation>
    </message>
    <message>
        <source>%1: it was cancelled</source>
        <translation>%1: キャンセルされました</translation>
    </message>
    <message>
        <source>'%1' has a computed column</source>
        <translation>「%1」には計算された列があります</translation>
    </message>
    <message>
        <source>'%1' is in the way; please remove it</source>
        <translation>「%1」が妨げになっています。削除してください</translation>
    </message>
    <message>
        <source>'%1' is no table</source>
        <translation>「%1」は表ではありません</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>列 %1</translation>
    </message>
    <message>
        <source>a change of the database was interrupted, and it cannot be copied to take that back in the copy</source>
        <translation>データベースの変更が中断されましたが、それを取り消すためのコピーを作れません</translation>
    </message>
    <message>
        <source>a download cannot be kept: %1</source>
        <translation>ダウンロードしたものを保存できません: %1</translation>
    </message>
    <message>
        <source>a field has another type since, so that it cannot be redone</source>
        <translation>フィールドの型がその後変わったため、やり直せません</translation>
    </message>
    <message>
        <source>a field has another type since, so that it cannot be undone</source>
        <translation>フィールドの型がその後変わったため、元に戻せません</translation>
    </message>
    <message>
        <source>a field has the column '%1', which is the records' number</source>
        <translation>フィールドの列「%1」はレコードの番号です</translation>
    </message>
    <message>
        <source>a field has the column '%1', which the table has not</source>
        <translation>フィールドの列「%1」は表にありません</translation>
    </message>
    <message>
        <source>a field needs a name</source>
        <translation>フィールドには名前が必要です</translation>
    </message>
    <message>
        <source>a folder of the bundle is a link, which leads out of it</source>
        <translation>バンドルの中のフォルダが、外を指すリンクになっています</translation>
    </message>
    <message>
        <source>a library needs a field</source>
        <translation>ライブラリには少なくとも一つのフィールドが必要です</translation>
    </message>
    <message>
        <source>a library needs a name</source>
        <translation>ライブラリには名前が必要です</translation>
    </message>
    <message>
        <source>another program is changing the bundle</source>
        <translation>別のプログラムがバンドルを変更しています</translation>
    </message>
    <message>
        <source>another program is changing the database; please try again</source>
        <translation>別のプログラムがデータベースを変更しています。もう一度お試しください</translation>
    </message>
    <message>
        <source>cannot be loaded: %1</source>
        <translation>読み込めません: %1</translation>
    </message>
    <message>
        <source>day, month, year</source>
        <translation>日、月、年</translation>
    </message>
    <message>
        <source>hours:minutes</source>
        <translation>時:分</translation>
    </message>
    <message>
        <source>is a folder, not a file</source>
        <translation>ファイルではなくフォルダです</translation>
    </message>
    <message>
        <source>is a pipe or a device, not a file</source>
        <translation>ファイルではなくパイプまたはデバイスです</translation>
    </message>
    <message>
        <source>it asked for a field that there is not: %1</source>
        <translation>存在しないフィールドが求められました: %1</translation>
    </message>
    <message>
        <source>it asked for a field where there is no record</source>
        <translation>レコードのない所でフィールドが求められました</translation>
    </message>
    <message>
        <source>it cannot be copied</source>
        <translation>コピーできません</translation>
    </message>
    <message>
        <source>it cannot be downloaded</source>
        <translation>ダウンロードできません</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>読み取れません</translation>
    </message>
    <message>
        <source>it contradicts how the other values of its column are read</source>
        <translation>列のほかの値の読み取り方と矛盾します</translation>
    </message>
    <message>
        <source>it has more digits or parts than its field shows</source>
        <translation>フィールドに表示されるより多くの桁または要素があります</translation>
    </message>
    <message>
        <source>it has moved to where plain http does not lead</source>
        <translation>通常の HTTP では届かない場所に移動しました</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>フォルダです</translation>
    </message>
    <message>
        <source>it is larger than %1 MB</source>
        <translation>%1 MB より大きいファイルです</translation>
    </message>
    <message>
        <source>it is no amount in this currency</source>
        <translation>この通貨の金額ではありません</translation>
    </message>
    <message>
        <source>it is no date or time</source>
        <translation>日付でも時刻でもありません</translation>
    </message>
    <message>
        <source>it is no file</source>
        <translation>ファイルではありません</translation>
    </message>
    <message>
        <source>it is no media file</source>
        <translation>メディアファイルではありません</translation>
    </message>
    <message>
        <source>it is no number</source>
        <translation>数ではありません</translation>
    </message>
    <message>
        <source>it is not beside the file; only columns that are named as media may lead elsewhere</source>
        <translation>ファイルと同じ場所にありません。別の場所を指せるのはメディアとして指定した列だけです</translation>
    </message>
    <message>
        <source>it may not be read</source>
        <translation>読み取りが許可されていません</translation>
    </message>
    <message>
        <source>it names no file</source>
        <translation>ファイルを指していません</translation>
    </message>
    <message>
        <source>it threw something that is no std::exception</source>
        <translation>std::exception でないものが投げられました</translation>
    </message>
    <message>
        <source>it was cancelled</source>
        <translation>キャンセルされました</translation>
    </message>
    <message>
        <source>it was changed since, so that it cannot be redone</source>
        <translation>その後変更されたため、やり直せません</translation>
    </message>
    <message>
        <source>it was changed since, so that it cannot be undone</source>
        <translation>その後変更されたため、元に戻せません</translation>
    </message>
    <message>
        <source>it was not downloaded</source>
        <translation>ダウンロードされませんでした</translation>
    </message>
    <message>
        <source>it was undone already</source>
        <translation>すでに元に戻されています</translation>
    </message>
    <message>
        <source>its name is too long</source>
        <translation>名前が長すぎます</translation>
    </message>
    <message>
        <source>its separators do not stand where groups end or the fraction begins</source>
        <translation>区切り記号が、桁区切りや小数の始まる位置にありません</translation>
    </message>
    <message>
        <source>its server does not answer</source>
        <translation>サーバーが応答しません</translation>
    </message>
    <message>
        <source>its server says %1</source>
        <translation>サーバーの応答: %1</translation>
    </message>
    <message>
        <source>larger than 1 GB</source>
        <translation>1 GB より大きいファイルです</translation>
    </message>
    <message>
        <source>line %1 has %2 columns, more than the %3 that a library can have</source>
        <translation>%1 行目には %2 列あり、ライブラリの上限 %3 列を超えています</translation>
    </message>
    <message>
        <source>line %1 is too long</source>
        <translation>%1 行目が長すぎます</translation>
    </message>
    <message>
        <source>meanwhile there are more values that cannot be read</source>
        <translation>その間に読み取れない値が増えました</translation>
    </message>
    <message>
        <source>minutes:seconds</source>
        <translation>分:秒</translation>
    </message>
    <message>
        <source>month, day, year</source>
        <translation>月、日、年</translation>
    </message>
    <message>
        <source>no column is left</source>
        <translation>列が残っていません</translation>
    </message>
    <message>
        <source>no library '%1'</source>
        <translation>ライブラリ「%1」はありません</translation>
    </message>
    <message>
        <source>no such table: %1</source>
        <translation>そのような表はありません: %1</translation>
    </message>
    <message>
        <source>no value decides; the locale's own</source>
        <translation>決め手となる値がないため、地域の慣習によります</translation>
    </message>
    <message>
        <source>not a text file</source>
        <translation>テキストファイルではありません</translation>
    </message>
    <message>
        <source>not a text file in %1 (line %2)</source>
        <translation>%1 のテキストファイルではありません (%2 行目)</translation>
    </message>
    <message>
        <source>passed over, since a program ended while its code ran: %1; 'cobble plugins enable' tries it again</source>
        <translation>そのコードの実行中にプログラムが終了したため、使われませんでした: %1。「cobble plugins enable」で再び試せます</translation>
    </message>
    <message>
        <source>row %1</source>
        <translation>%1 行目</translation>
    </message>
    <message>
        <source>rows %1</source>
        <translation>%1 行目</translation>
    </message>
    <message>
        <source>the database</source>
        <translation>データベース</translation>
    </message>
    <message>
        <source>the database bundle cannot be made</source>
        <translation>データベースのバンドルを作成できません</translation>
    </message>
    <message>
        <source>the database has a trigger, which Cobble does not use</source>
        <translation>データベースに Cobble が使わないトリガーがあります</translation>
    </message>
    <message>
        <source>the database has a write-ahead log, which Cobble does not use</source>
        <translation>データベースに Cobble が使わないログ先行書き込み (WAL) があります</translation>
    </message>
    <message>
        <source>the database was made by a newer version of Cobble</source>
        <translation>データベースは新しいバージョンの Cobble で作成されています</translation>
    </message>
    <message>
        <source>the exporter failed</source>
        <translation>書き出し機能が失敗しました</translation>
    </message>
    <message>
        <source>the exporter failed: %1</source>
        <translation>書き出し機能が失敗しました: %1</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>ファイルが空です</translation>
    </message>
    <message>
        <source>the file is marked as %1, not %2</source>
        <translation>ファイルの印は%2ではなく%1を示しています</translation>
    </message>
    <message>
        <source>the file was changed while it was read</source>
        <translation>読み込み中にファイルが変更されました</translation>
    </message>
    <message>
        <source>the files of an import that was interrupted cannot be removed</source>
        <translation>中断された読み込みのファイルを削除できません</translation>
    </message>
    <message>
        <source>the history cannot be read</source>
        <translation>履歴を読み取れません</translation>
    </message>
    <message>
        <source>the history no longer has it</source>
        <translation>履歴にもうありません</translation>
    </message>
    <message>
        <source>the importer failed</source>
        <translation>読み込み機能が失敗しました</translation>
    </message>
    <message>
        <source>the importer failed: %1</source>
        <translation>読み込み機能が失敗しました: %1</translation>
    </message>
    <message>
        <source>the journal of the database</source>
        <translation>データベースのジャーナル</translation>
    </message>
    <message>
        <source>the journal of the database cannot be read</source>
        <translation>データベースのジャーナルを読み取れません</translation>
    </message>
    <message>
        <source>the journal of the database names another file</source>
        <translation>データベースのジャーナルが別のファイルを指しています</translation>
    </message>
    <message>
        <source>the library has no fields</source>
        <translation>ライブラリにフィールドがありません</translation>
    </message>
    <message>
        <source>the library is no longer there</source>
        <translation>ライブラリはもうありません</translation>
    </message>
    <message>
        <source>the library was changed meanwhile</source>
        <translation>その間にライブラリが変更されました</translation>
    </message>
    <message>
        <source>the library “%1” has the table “%2”, which Cobble needs for itself</source>
        <translation>ライブラリ「%1」の表「%2」は、Cobble 自身が必要とする名前です</translation>
    </message>
    <message>
        <source>the record is no longer there</source>
        <translation>レコードはもうありません</translation>
    </message>
    <message>
        <source>the records of '%1' have no number</source>
        <translation>「%1」のレコードには番号がありません</translation>
    </message>
    <message>
        <source>the step cannot be read</source>
        <translation>操作の記録を読み取れません</translation>
    </message>
    <message>
        <source>the values contradict each other; the locale's own</source>
        <translation>値が互いに矛盾するため、地域の慣習によります</translation>
    </message>
    <message>
        <source>the values name it</source>
        <translation>値に示されています</translation>
    </message>
    <message>
        <source>there are %1</source>
        <translation>使えるもの: %1</translation>
    </message>
    <message>
        <source>there is a 'Database%1', which Cobble does not use</source>
        <translation>Cobble が使わない「Database%1」があります</translation>
    </message>
    <message>
        <source>there is a field of that name</source>
        <translation>同じ名前のフィールドがあります</translation>
    </message>
    <message>
        <source>there is a library of that name</source>
        <translation>同じ名前のライブラリがあります</translation>
    </message>
    <message>
        <source>there is another library of the name “%1”</source>
        <translation>「%1」という名前の別のライブラリがあります</translation>
    </message>
    <message>
        <source>there is more than a number</source>
        <translation>数以外のものが含まれています</translation>
    </message>
    <message>
        <source>there is no column '%1'</source>
        <translation>列「%1」はありません</translation>
    </message>
    <message>
        <source>there is no database</source>
        <translation>データベースがありません</translation>
    </message>
    <message>
        <source>there is no exporter for '%1'</source>
        <translation>「%1」の書き出し機能はありません</translation>
    </message>
    <message>
        <source>there is no folder for the database bundle</source>
        <translation>データベースのバンドルを置くフォルダがありません</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>そのようなファイルはありません</translation>
    </message>
    <message>
        <source>there is nothing but blank lines</source>
        <translation>空行しかありません</translation>
    </message>
    <message>
        <source>this is no order of the fields</source>
        <translation>フィールドの並び順ではありません</translation>
    </message>
    <message>
        <source>told without effect: %1</source>
        <translation>指定は効果がありません: %1</translation>
    </message>
    <message>
        <source>two fields have the column '%1'</source>
        <translation>2つのフィールドに同じ列「%1」があります</translation>
    </message>
    <message>
        <source>what the step has removed is no longer there</source>
        <translation>この操作で取り除かれたものは、もうありません</translation>
    </message>
    <message>
        <source>year, month, day</source>
        <translation>年、月、日</translation>
    </message>
    <message>
        <source>you say so</source>
        <translation>指定によります</translation>
    </message>
</context>
<context>
    <name>RecordCommands</name>
    <message numerus="yes">
        <source>Added %1 record(s)</source>
        <translation>
            <numerusform>%1件のレコードを追加しました</numerusform>
        </translation>
    </message>
    <message>
        <source>Not all of these records can be read now. Nothing was pasted.</source>
        <translation>これらのレコードの一部を現在読み取れません。何も貼り付けませんでした。</translation>
    </message>
    <message>
        <source>So many records cannot be copied at once.</source>
        <translation>これほど多くのレコードを一度にコピーすることはできません。</translation>
    </message>
</context>
<context>
    <name>RecordFinder</name>
    <message>
        <source>No record fits the filter.</source>
        <translation>フィルタに合うレコードはありません。</translation>
    </message>
    <message>
        <source>No record fits “%1” and the filter.</source>
        <translation>「%1」とフィルタの両方に合うレコードはありません。</translation>
    </message>
    <message>
        <source>No record fits “%1”.</source>
        <translation>「%1」に合うレコードはありません。</translation>
    </message>
    <message>
        <source>The filter cannot be used: %1</source>
        <translation>フィルタを使用できません: %1</translation>
    </message>
</context>
<context>
    <name>RecordTableModel</name>
    <message>
        <source>the record cannot be read now</source>
        <translation>レコードを現在読み取れません</translation>
    </message>
</context>
<context>
    <name>SelectionSummary</name>
    <message numerus="yes">
        <source>%1 selected</source>
        <translation>
            <numerusform>%1 件を選択</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>ShowLibraryAlert</name>
    <message>
        <source>It is in the list in any case.</source>
        <translation>いずれにしても一覧に表示されます。</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>今はしない</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Show the library “%1” now?</source>
        <translation>ライブラリ「%1」を今すぐ表示しますか?</translation>
    </message>
</context>
<context>
    <name>SilencedAlerts</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Show &amp;Again</source>
        <translation>再び表示(&amp;A)</translation>
    </message>
    <message>
        <source>Silenced Alerts</source>
        <translation>表示しない警告</translation>
    </message>
    <message>
        <source>Silenced alerts</source>
        <translation>表示しない警告</translation>
    </message>
    <message>
        <source>These alerts are not shown any more. What they ask for is done at once.</source>
        <translation>これらの警告は表示されません。確認する操作はすぐに実行されます。</translation>
    </message>
</context>
<context>
    <name>SmartLibraryList</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Its records stay. This cannot be undone.</source>
        <translation>レコードは残ります。この操作は取り消せません。</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>名前:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Remove the smart library “%1”?</source>
        <translation>スマートライブラリ「%1」を削除しますか?</translation>
    </message>
    <message>
        <source>Remove…</source>
        <translation>削除…</translation>
    </message>
    <message>
        <source>Rename Smart Library</source>
        <translation>スマートライブラリの名前の変更</translation>
    </message>
    <message>
        <source>Rename…</source>
        <translation>名前を変更…</translation>
    </message>
    <message>
        <source>Save as Smart Library</source>
        <translation>スマートライブラリとして保存</translation>
    </message>
    <message>
        <source>Some records of %1</source>
        <translation>%1 の一部のレコード</translation>
    </message>
</context>
<context>
    <name>StepText</name>
    <message>
        <source>Change</source>
        <translation>変更</translation>
    </message>
    <message>
        <source>Change Fields of “%1”</source>
        <translation>「%1」のフィールドの変更</translation>
    </message>
    <message>
        <source>Change Format of “%1”</source>
        <translation>「%1」の書式の変更</translation>
    </message>
    <message>
        <source>Change Type of “%1”</source>
        <translation>「%1」の種類の変更</translation>
    </message>
    <message>
        <source>Change of “%1”</source>
        <translation>「%1」の変更</translation>
    </message>
    <message numerus="yes">
        <source>Delete %1 Record(s)</source>
        <translation>
            <numerusform>%1 件のレコードの削除</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Duplicate %1 Record(s)</source>
        <translation>
            <numerusform>%1件のレコードを複製</numerusform>
        </translation>
    </message>
    <message>
        <source>Fill Down</source>
        <translation>下へ埋める</translation>
    </message>
    <message>
        <source>Import of “%1”</source>
        <translation>「%1」の読み込み</translation>
    </message>
    <message>
        <source>Move Field “%1”</source>
        <translation>フィールド「%1」の移動</translation>
    </message>
    <message numerus="yes">
        <source>New %1 Record(s)</source>
        <translation>
            <numerusform>%1 件の新規レコード</numerusform>
        </translation>
    </message>
    <message>
        <source>New Field “%1”</source>
        <translation>新規フィールド「%1」</translation>
    </message>
    <message>
        <source>New Library “%1”</source>
        <translation>新規ライブラリ「%1」</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Remove Field “%1”</source>
        <translation>フィールド「%1」の削除</translation>
    </message>
    <message>
        <source>Remove Library “%1”</source>
        <translation>ライブラリ「%1」の削除</translation>
    </message>
    <message>
        <source>Rename Field “%1”</source>
        <translation>フィールド「%1」の名前の変更</translation>
    </message>
    <message>
        <source>Rename Library “%1”</source>
        <translation>ライブラリ「%1」の名前の変更</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>置き換え</translation>
    </message>
</context>
<context>
    <name>StepTexts</name>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
</context>
<context>
    <name>TransferSheet</name>
    <message>
        <source>Another window is importing or exporting. Please wait until it is done.</source>
        <translation>別のウィンドウが読み込みまたは書き出しの途中です。終わるまでお待ちください。</translation>
    </message>
</context>
</TS>
