<psc:chapters version="1.2" xmlns:psc="http://podlove.org/simple-chapters">
<psc:chapter start="00:00:01.000" title="%1 %2 %@ &amp;amp;" href="%3 &amp;#10;"/>
</psc:chapters>
